-- A parenthesis that nothing closes: in style B, an index answers from here on what handlers ask about the text ahead.
x <= f(a;
component c is
generic (n : integer; long_name_of_a_generic, m : natural := 1);
port (a : in bit; signal bbb : linkage bit; constant cc, long_name : buffer bit);
end component;
type t is (red, green, blue);
type u is (alone);
type r is record a, b : bit; long_name : bit; end record;
procedure p (signal x, long_name : in c; y : inout d);
function f (xx, yyyy : d; file a_file : e) return e;
signal s1, s2, s3 : bit;
u1 : c generic map (1, n => 2) port map (a, long_name => b, c);
long_name <= z after 1 ns, w after 2 ns;
v := w;
long_name := w;
constant c1 : t := 1;
constant long_name : t := 2;
port (a : in bit; long_name : out bit end;
procedure n (a_name_that_is_longer_than_all_others : in bit; b : bit);
-- Lists that nothing closes: in any style, the index answers from here on.
procedure q (a : b;
procedure p (signal x, long_name : in c; y : inout d);
function f (xx, yyyy : d) return e;
generic (n : integer; long_name_of_a_generic, m : natural := 1);
port (a : in bit; signal bbb : linkage bit; constant cc, long_name : buffer bit);
type t is (red, green, blue);
type u is (alone);
u1 : c generic map (1, n => 2) port map (a, long_name => b, c);
x <= y;
long_name <= z after 1 ns, w after 2 ns;
v := w;
long_name := w;
constant c1 : t := 1;
constant long_name : t := 2;
port map (a => b, long_name => c
