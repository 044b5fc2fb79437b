" Sends the buffer through qornfmt and puts back what has changed.
"
" The text goes through the program in the encoding of the file, since columns are bytes there, and under the name of
" the file, whose folder says which configuration applies. The buffer is changed only after the program has succeeded,
" and in one step of undo.

let s:save_cpo = &cpo
set cpo&vim

" Formats the lines first to last; where they are not all, what touches them. With a true third argument only errors are
" shown. Returns 1, or 0 after an error.
function! qorn#Format(first, last, ...) abort
  if !&modifiable
    return s:Complain(['qorn: the buffer may not be changed'])
  endif
  let l:old = getline(1, '$')
  let l:options = a:first > 1 || a:last < line('$') ? ['--lines', a:first . ':' . a:last] : []
  let l:new = s:Filter(l:old, l:options + (a:0 && a:1 ? ['-q'] : []))
  if empty(l:new)
    return 0
  endif
  let l:place = s:Place()
  if s:Replace(l:old, l:new[0])
    call s:Restore(l:place)
  endif
  return 1
endfunction

" For 'formatexpr': gq formats by qorn; while typing, Vim breaks lines itself.
function! qorn#FormatExpr() abort
  if mode() =~# '[iR]'
    return 1
  endif
  call qorn#Format(v:lnum, v:lnum + v:count - 1)
  return 0
endfunction

function! s:Complain(lines) abort
  echohl ErrorMsg
  for l:line in a:lines
    echomsg l:line
  endfor
  echohl None
  return 0
endfunction

function! s:Setting(name, default) abort
  return get(b:, a:name, get(g:, a:name, a:default))
endfunction

" The lines formatted, in a list of one item; an empty list after a message.
function! s:Filter(lines, options) abort
  let l:words = [s:Setting('qorn_program', 'qornfmt')] + a:options
  let l:config = s:Setting('qorn_config', '')
  if l:config !=# ''
    let l:words += ['-c', expand(l:config)]
  endif
  if expand('%') !=# ''
    let l:words += ['--stdin-filename', expand('%:p')]
  endif
  let l:encoding = &fileencoding ==# '' ? &encoding : &fileencoding
  let l:recode = l:encoding !=? &encoding && l:encoding !~? '^\(ucs\|utf\)'
  let l:input = tempname()
  let l:errors = tempname()
  try
    let l:lines = l:recode ? map(copy(a:lines), 'iconv(v:val, &encoding, l:encoding)') : a:lines
    " With the line end of the last line, as a file has it.
    call writefile(l:lines, l:input)
    let l:output = system(join(map(l:words + ['-'], 'shellescape(v:val)')) . ' <' . shellescape(l:input)
          \ . ' 2>' . shellescape(l:errors))
    let l:messages = readfile(l:errors)
    " A program that prints nothing has not formatted a text.
    if v:shell_error || (l:output ==# '' && join(a:lines, '') =~# '\S')
      call s:Complain(empty(l:messages) ? [l:words[0] . ' failed'] : l:messages)
      return []
    endif
    for l:message in l:messages
      echomsg l:message
    endfor
  finally
    call delete(l:input)
    call delete(l:errors)
  endtry
  let l:output = substitute(l:output, '\n$', '', '')
  let l:result = split(l:output, "\n", 1)
  return [l:recode ? map(l:result, 'iconv(v:val, l:encoding, &encoding)') : l:result]
endfunction

" Puts new lines in the place of all, and touches only those that differ, so that marks on the others stay. Returns 1
" where something has changed.
function! s:Replace(old, new) abort
  let l:head = 0
  let l:shorter = min([len(a:old), len(a:new)])
  while l:head < l:shorter && a:old[l:head] ==# a:new[l:head]
    let l:head += 1
  endwhile
  let l:tail = 0
  while l:tail < l:shorter - l:head && a:old[-1 - l:tail] ==# a:new[-1 - l:tail]
    let l:tail += 1
  endwhile
  let l:gone = len(a:old) - l:head - l:tail
  let l:come = len(a:new) - l:head - l:tail
  if l:gone == 0 && l:come == 0
    return 0
  endif
  let l:both = min([l:gone, l:come])
  let l:line = 1 + l:head
  if l:both > 0
    call setline(l:line, a:new[l:head : l:head + l:both - 1])
  endif
  if l:come > l:both
    call append(l:line + l:both - 1, a:new[l:head + l:both : l:head + l:come - 1])
  elseif l:gone > l:both
    silent execute 'keepjumps' (l:line + l:both) . ',' . (l:line + l:gone - 1) . 'delete _'
  endif
  return 1
endfunction

" --- The cursor ---
"
" Formatting moves blanks, draws out frames and starts comments anew, but leaves the number of all other characters.
" So a place is the number of those before it.

function! s:Count(text) abort
  return strchars(substitute(a:text, '[ \t=*-]', '', 'g'))
endfunction

function! s:Place() abort
  let [l:line, l:col] = [line('.'), col('.')]
  let l:count = s:Count(join(getline(1, l:line - 1), '')) + s:Count(strpart(getline(l:line), 0, l:col - 1))
  let l:target = s:Find(l:count)
  return {'count': l:count, 'below': l:target[0] - l:line, 'text': getline(l:line), 'view': winsaveview()}
endfunction

" The line and the byte offset of the character behind count others
function! s:Find(count) abort
  let l:left = a:count
  let l:line = 1
  while l:line <= line('$')
    let l:here = s:Count(getline(l:line))
    if l:here > l:left
      let l:offset = 0
      while l:left > 0
        let l:offset = matchend(getline(l:line), '[^ \t=*-]', l:offset)
        let l:left -= 1
      endwhile
      return [l:line, match(getline(l:line), '[^ \t=*-]', l:offset)]
    endif
    let l:left -= l:here
    let l:line += 1
  endwhile
  return [line('$'), 0]
endfunction

function! s:Restore(place) abort
  let [l:line, l:offset] = s:Find(a:place.count)
  let l:view = a:place.view
  if a:place.below > 0
    let l:offset = l:view.col
  endif
  let l:line = max([1, l:line - a:place.below])
  if getline(l:line) ==# a:place.text
    let l:offset = l:view.col
  endif
  let l:view.topline = max([1, l:view.topline + l:line - l:view.lnum])
  let l:view.lnum = l:line
  let l:view.col = l:offset
  call winrestview(l:view)
endfunction

let &cpo = s:save_cpo
unlet s:save_cpo
