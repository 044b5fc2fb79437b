package body p is
-- Parameters stand under the first one, with columns for classes, names and modes.
function max (a, b : integer) return integer;
procedure shift (signal clk : in bit; variable data : inout bit_vector(7 downto 0); constant n : natural := 1; x : out bit);
pure function f return bit; impure function now (dummy : in bit) return time;

-- Bodies; a list that closes on its own line; no list at all.
function "+" (left : bit;
    right : bit
  ) return bit is variable v : bit; begin return left; end "+";
procedure go is begin null; end go;

-- Files, a name too long for the column, a range that a comma splits.
procedure dump (file f : text; this_is_the_name_of_a_parameter : in integer; m : matrix(1 to 2, 1 to 3));
function nested (a : vector) return vector(1 to 3);
signal s : bit;
end p;
