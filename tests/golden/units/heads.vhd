-- The context stands at the margin, with its continuation under the first name.
library ieee, work, std; use ieee.std_logic_1164.all;
USE   ieee.numeric_std.all ,
  std.textio.all;


-- Heads end their lines wherever the source breaks them.
entity
  counter
is end entity counter; entity empty is end;

architecture rtl of
  counter is begin end rtl;

-- A body indents like its package.
package types is
constant depth : integer := 4;
end types;
package body types is
  function half (n : integer) return integer is
  begin
      return n / 2;
  end half;
end package body types;

-- A head that is none runs on like a statement.
entity is
nonsense here;
end;

-- Components with and without "is".
package parts is
component cell
port (a : in bit);
end component;
component cell2 is generic (n : natural); port (a : in bit);
end component cell2;
end parts;

-- A unit that a statement names opens nothing.
architecture tree of top is
begin
u1 : entity work.leaf port map (a => b);
u2 : component cell port map (a);
u3: configuration work.leafcfg
  port map (a => b);
end tree;

-- Surplus closing words stay at the margin.
end; end process; begin
a <= b;
end;
