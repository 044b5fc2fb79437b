autocmd BufRead,BufNewFile .qornrc,qornrc,*.qornrc setfiletype qornrc
