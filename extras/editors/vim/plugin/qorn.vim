" Formats VHDL by qornfmt: :Qorn for the buffer, :[range]Qorn for lines of it. See doc/qorn.txt.

if exists('g:loaded_qorn')
  finish
endif
let g:loaded_qorn = 1
let s:save_cpo = &cpo
set cpo&vim

command! -range=% -bar Qorn call qorn#Format(<line1>, <line2>)

augroup qorn
  autocmd!
  autocmd BufWritePre *.vhd,*.vhdl if get(b:, 'qorn_on_write', get(g:, 'qorn_on_write', 0)) |
        \ call qorn#Format(1, line('$'), 1) | endif
augroup END

let &cpo = s:save_cpo
unlet s:save_cpo
