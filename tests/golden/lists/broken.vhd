-- An end closes any list, with its parenthesis or without.
entity e is
port (a : in bit; long_name : out bit end e;
architecture a of e is begin
u1 : cell port map (a => b, c end cell;
x <= y;
-- A parenthesis too few at the end of the file: nothing is measured, nothing aligned.
u2 : cell port map (a => (b, long_name => c;
d <= e;
