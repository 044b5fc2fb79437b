" Configurations of qorn: what a comment looks like.

if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal comments=:# commentstring=#\ %s fixendofline
let b:undo_ftplugin = 'setlocal comments< commentstring< fixendofline<'
