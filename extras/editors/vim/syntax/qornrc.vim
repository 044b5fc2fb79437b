" Configurations of qorn. The program passes over what it does not know without a word; here it shows as an error.

if exists('b:current_syntax')
  finish
endif

syntax case ignore
setlocal iskeyword=@,48-57,_

syntax match qornrcUnknown "\w\+"
syntax match qornrcNumber "\<\d\+\>"
syntax match qornrcUnknown "-\ze\d\|\.\d\+"
syntax match qornrcUnknown +["']+
syntax region qornrcString start=+"\ze[^"]+ end=+"+
syntax region qornrcString start=+'\ze[^']+ end=+'+
syntax match qornrcComment "#.*$"

syntax keyword qornrcKey ATTRIBUTE ATTRIBUTECASE BACKUPFILE BACKUPFILEEXTENSION BLOCKCOMMENT
syntax keyword qornrcKey BLOCKCOMMENTCHARACTERS COMMENTSTART COMMENTSTARTCOLUMN HEXDIGITS IDENTIFIER
syntax keyword qornrcKey IDENTIFIERCASE IDENTLENGTH IDENTIFIERLENGTH INDENT INDENTATION
syntax keyword qornrcKey INTERFACEIDENTIFIER INTERFACEIDENTIFIERLIST KEEPBACKUP KEEPBACKUPFILE KEYWORD
syntax keyword qornrcKey KEYWORDCASE LINE LINEWIDTH STYLE TABIFY TABSIZE ASSOCIATION ASSOCIATIONLIST EXTEND
syntax keyword qornrcKey EXTENDCOMMENTS FRAME FRAMEBLOCKCOMMENTS VHDL BLOCKHEADER

" Known, and without effect
syntax keyword qornrcIdle INSERTEDKEYWORD INSERTEDKEYWORDCASE MINIMUMFIELD MINIMUMFIELDWIDTH VERBOSEINTERFACE
syntax keyword qornrcIdle VERBOSEINTERFACELIST PARAMETER PARAMETERLIST PADWITHTABS ERROR ERRORBELL
syntax keyword qornrcIdle ARCHITECTUREHEADER ARCHITECTUREHEADERFILENAME CONFIGURATIONHEADER
syntax keyword qornrcIdle CONFIGURATIONHEADERFILENAME ENTITYHEADER ENTITYHEADERFILENAME FILEHEADER
syntax keyword qornrcIdle FILEHEADERFILENAME PACKAGEHEADER PACKAGEHEADERFILENAME PACKAGEBODYHEADER
syntax keyword qornrcIdle PACKAGEBODYHEADERFILENAME PROCESSHEADER PROCESSHEADERFILENAME SUBPROGRAMHEADER
syntax keyword qornrcIdle SUBPROGRAMHEADERFILENAME

syntax keyword qornrcValue ALWAYS ASIS LIST FALSE CAPITALIZE CAPITALIZED CAPITALIZEAFTER CAPITALIZEDAFTER
syntax keyword qornrcValue CAPITALIZEAFTERUNDERSCORE CAPITALIZEDAFTERUNDERSCORE LOWER LOWERCASE NEVER TRUE
syntax keyword qornrcValue UPPER UPPERCASE VERBOSE WRAPPED A B

highlight default link qornrcKey Identifier
highlight default link qornrcIdle Special
highlight default link qornrcValue Constant
highlight default link qornrcNumber Number
highlight default link qornrcString String
highlight default link qornrcComment Comment
highlight default link qornrcUnknown Error

let b:current_syntax = 'qornrc'
