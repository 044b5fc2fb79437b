--QORN-OFF
-- Blanks of every length, from each column, after code and in comments.
    a
   a
a   b
aa      b
a     b
aaaa     b
a    b
a  b
aaaaa    b
a     b     c
    d
a         b     c
a     --      b c   d     
--a 
--    
"        " --QORN-OFF     x 
        a        --     x
a            b
	x
-- Tabs of the input, after what has its own columns.
a'low	b
a'
	low	b
"	"	b
!	.
	.
