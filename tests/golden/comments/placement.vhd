-- At the margin.
      -- Below it, but further right: under the one above.
   -- And again.

      -- After a gap it takes the indent of the code.
package p is
-- On a line of its own.
signal a : bit; -- beside the code
     -- under the one beside the code
-- back at the indent
     -- and under that
signal b : bit;     -- another run

     -- after a gap
constant long_name_of_a_constant : integer := 1; -- code beyond the column
   -- under it
-- not under it
signal c : bit;--no blank
signal d : bit;
     --right of the code

-- Within statements: the line ends where it ended.
procedure q (a : in bit;    -- one
   -- two
   b : out bit -- three
  );
constant -- here
  x -- there
  : -- everywhere
  integer;
type t is ( -- why
  red, -- r

  green -- g
);
-- At the end of a line that the formatter ends; then two statements.
end p; -- done
entity e is end; entity f is -- behind the second
end;
