-- Block configurations step in one by one.
use work.all;
configuration board of top is
for structure
for all : cell use entity work.cell(fast); end for;
for u2, u3 : cell
use configuration work.cellcfg port map (a => b);
end for;
for others : cell use open; end for;
for group1 for inner end for; end for;
end for; end configuration board;

-- Outside of a configuration no end closes the specification.
architecture a of e is
for u1 : cell use entity work.cell(fast);
for all : cell
  use entity work.cell(slow)
  port map (a => b);
signal s : bit;
disconnect s : bit after 5 ns;
begin
end a;
