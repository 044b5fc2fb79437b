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

" The word under the cursor after formatting with the cursor on the first match of pattern
function! s:WordAt(pattern) abort
  call cursor(1, 1)
  call search(a:pattern, 'c')
  Qorn
  return expand('<cword>')
endfunction

function! s:Test() abort
  let l:raw = ['entity E is port(', 'clk:in bit;  -- tick', 'q:out bit);', 'end E;', '', 'architecture A of E is begin',
        \ 'process(clk) begin if clk=''1'' then q<=''0''; end if; end process;', 'end A;']
  for l:word in ['then', 'entity', 'tick', 'bit);', 'q<=', 'end A']
    call s:Buffer(l:raw)
    call s:Equal('cursor on ' . l:word, matchstr(tolower(l:word), '\w\+'), tolower(s:WordAt('\V' . l:word)))
  endfor
  call s:Equal('formatted', ['ENTITY e IS', 'END a;'], [getline(1), getline('$')])
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
  call s:Equal('words of the language are found', 1, len(l:words) > 70)
  call writefile(l:words, '.qornrc')
  edit! .qornrc
  call s:Equal('file type', 'qornrc', &filetype)
  let l:unknown = filter(copy(l:words), 's:GroupAt(v:key + 1, 1) !~# "^qornrc\\(Key\\|Idle\\|Value\\)$"')
  call s:Equal('unknown words', [], l:unknown)
  for [l:text, l:group] in items({'uper': 'Unknown', 'XTABSIZE': 'Unknown', 'LINEWIDTHS': 'Unknown', '80': 'Number',
        \ '8x': 'Unknown', '"uper"': 'String', '# uper': 'Comment', '""': 'Unknown', 'linewidth': 'Key'})
    call setline(1, 'INDENT ' . l:text)
    call s:Equal(l:text, 'qornrc' . l:group, s:GroupAt(1, 8))
  endfor
endfunction

function! s:GroupAt(line, column) abort
  return synIDattr(synID(a:line, a:column, 1), 'name')
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
