package p is
-- Enumerations run on or stand one by one.
type state is (idle, run,
  stop);
type bit3 is ( '0', '1', 'Z' );
type later;

-- One dimension stays; several are spread out.
type line is array (0 to 3) of bit;
type screen is array (0 to 3, natural range <>) of bit; type cube is array (1 to 2, 1 to 2, 1 to 2) of r;

-- Records.
type pair is record left, right : integer;
very_long_element : bit_vector(7 downto 0); end record;
type one is record x : bit; end record one;

-- Physical units; the first has no equals sign.
type time is range 0 to 1E9 units fs; ps = 1000 fs;
  nanosecond = 1000 ps; end units;
type ptr is access one;
signal after_all : bit;
end p;
