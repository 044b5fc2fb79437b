" Run by vim_test.sh in an empty folder: what is wrong, and "done", go to the file "report".

let s:failures = []
function! s:Equal(what, expected, got) abort
  if a:expected !=# a:got
    call add(s:failures, a:what . ': expected ' . string(a:expected) . ', got ' . string(a:got))
  endif
endfunction

function! s:Buffer(lines) abort
  %bwipeout!
  enew!
  call setline(1, a:lines)
  let &undolevels = &undolevels
endfunction

function! s:Test() abort
  let l:raw = ['entity E is port(', 'clk:in bit;  -- tick', 'q:out bit);', 'end E;']
  for l:word in ['entity', 'clk', 'tick', 'bit);', 'end E']
    call s:Buffer(l:raw)
    call search('\V' . l:word, 'cw')
    Qorn
    call s:Equal('cursor on ' . l:word, matchstr(tolower(l:word), '\w\+'), tolower(expand('<cword>')))
  endfor
  call s:Equal('formatted', ['ENTITY e IS', 'END e;'], [getline(1), getline('$')])
  let l:neat = getline(1, '$')
  call cursor(3, 2)
  Qorn
  call s:Equal('again, nothing changes', [l:neat, 3, 2], [getline(1, '$'), line('.'), col('.')])
  undo
  call s:Equal('one undo takes all back', l:raw, getline(1, '$'))

  call s:Buffer(['process begin', 'a<=b;', 'c<=d;', 'e<=f;', 'end process;'])
  3Qorn
  setlocal formatexpr=qorn#FormatExpr()
  normal! 4Ggqq
  call s:Equal('a range and gq', ['process begin', 'a<=b;', '    c <= d;', '    e <= f;', 'end process;'], getline(1, '$'))

  call mkdir('project/sub', 'p')
  call writefile(['KEYWORDCASE lower'], 'project/.qornrc')
  call s:Buffer(['END e;', 'c<=d;'])
  file project/sub/new.vhd
  Qorn
  call s:Equal('the configuration of the file', ['end e;', 'c <= d;'], getline(1, '$'))
  let g:qorn_on_write = 1
  for [l:setting, l:value] in [['qorn_config', 'none.rc'], ['qorn_program', 'true']]
    let g:[l:setting] = l:value
    call s:Buffer(['a<=b;', 'c<=d;'])
    call cursor(2, 3)
    silent! write! out.vhd
    call s:Equal(l:value . ' leaves the text', [['a<=b;', 'c<=d;'], getline(1, '$'), 2, 3, 0],
          \ [readfile('out.vhd'), getline(1, '$'), line('.'), col('.'), qorn#Format(1, 2)])
    unlet g:[l:setting]
  endfor
  silent write
  call s:Equal('formatted on write', ['a <= b;', 'c <= d;'], readfile('out.vhd'))

  call s:Buffer(['a<="äöü";-- ß'])
  setlocal fileencoding=latin1
  Qorn
  call s:Equal('letters of one byte in the file', 'a <= "äöü";' . repeat(' ', 29) . '-- ß', getline(1))
  call s:Highlighting()
endfunction

function! s:Highlighting() abort
  syntax on
  let l:words = map(filter(readfile($QORN_WORDS), 'v:val =~# "^QORN_\\(KEY\\|VALUE\\)("'), 'matchstr(v:val, "\"\\zs\\w*")')
  call writefile(l:words + ['uper', 'XTABSIZE', '8x', '""'], '.qornrc')
  edit! .qornrc
  let l:unknown = filter(range(1, line('$')), 'synIDattr(synID(v:val, 1, 1), "name") !~# "^qornrc\\(Key\\|Idle\\|Value\\)$"')
  call s:Equal('unknown words', range(len(l:words) + 1, line('$')), l:unknown)
endfunction

set encoding=utf-8 nomore
scriptencoding utf-8
execute 'set runtimepath^=' . fnameescape($QORN_VIM)
filetype plugin on
set cpoptions+=C  " as in an editor that is compatible with vi: lines do not go on
runtime plugin/qorn.vim
set cpoptions-=C
try
  call s:Test()
catch
  call add(s:failures, v:exception . ' at ' . v:throwpoint)
endtry
call writefile(s:failures + ['done'], 'report')
qall!
