package p is
signal a:bit;
  --qorn-off
  SIGNAL   B :Bit ;  -- As is,	with a tab
Function  F( a,b:INTEGER )
   return   Integer;   constant LONG : string := "a line that is far too long and that nobody breaks in here";
   --QORN-ON
signal c:bit; --Qorn-Indent-Off
   signal  D_x : Bit ;   constant  H:Integer:=16#Ff#;
  -- a comment that is far too long for the line and would be cut if it stood anywhere else than here --
   --qorn-indent-on as before
signal e:bit; --qorn-off beside the code
      SIGNAL f:bit;--qorn-on
-- Either word ends what the other began, as far as wrapping goes, but not in what is printed.
--qorn-indent-off
  signal g  : bit; --qorn-on
-- A comment that is far too long for the line shows whole all the same, while the layout is the source's.
signal h   :bit;
   --qorn-indent-on
-- --qorn-off with a blank is an ordinary comment, and so is what stands on the line below this one.
--qorn-indent
signal  i:bit; if a -- qorn-off
 then
--qorn-off
     end   IF;
