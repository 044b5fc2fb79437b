-- Fixed-point numbers ------------------------------------------------------
-- A number is an integer that counts units of 2**(-FRACTION). Results saturate.
-- ---------------------------------------------------------------------------
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

package fixed_math is

  constant FRACTION : natural := 12; constant WIDTH : positive := 28;
  constant SCALE    : integer := 2**FRACTION;

  subtype fixed is integer range -(2**(WIDTH-1)) to 2**(WIDTH-1) - 1;
  constant ONE:fixed:=SCALE; constant HALF : fixed := SCALE/2;
  constant PI  : fixed := 16#3_243F#/16;  -- 3.14159 less what the fraction cannot hold
  constant MASK: bit_vector(15 downto 0):=X"0fFf";

  -- Types ===================================================================
  type rounding is ( truncate,nearest,   floor, ceiling );
  type fixed_vector is array(natural range<>) of fixed;
  type matrix is array (positive range <>, positive range <>) of fixed;
  type complex is record
	re : fixed;	-- real part
	im : fixed;	-- imaginary part
  end record;
  type complex_vector is array (natural range <>) of complex;
  type angle is range 0 to 360_000
    units
      millideg;
      deg=1000 millideg;
      quarter = 90 deg;
    end units;

  attribute latency : natural;
  attribute author_note : string;

  -- Conversions
  function to_fixed(value : real) return fixed;
  function to_fixed(value : integer; mode : rounding := nearest) return fixed;
  function to_real(value : fixed) return real;
  function to_slv (value : fixed) return std_logic_vector;
  function to_string_fixed (value : fixed; digits : natural := 4) return string;

  -- Arithmetic
  function multiply(a,b:fixed; mode : rounding:=nearest) return fixed;
  function divide (dividend : fixed; divisor : fixed; mode : rounding := nearest) return fixed;
  function sqrt (value : fixed) return fixed;
  function dot_product (a, b : fixed_vector) return fixed;
  function "*" (a, b : complex) return complex; function "+" (a, b : complex) return complex;
  procedure rotate (variable z : inout complex; constant by_sine : in fixed; constant by_cosine : in fixed);
  procedure min_max (constant v : in fixed_vector; variable lowest : out fixed; variable highest:out fixed);
  procedure transpose (signal m : in matrix; signal result : out matrix);

  attribute latency of multiply [fixed,fixed,rounding return fixed] : function is 3;
  attribute author_note of rotate : procedure is "one step, no correction of the length";

end fixed_math;

package body fixed_math is

  -- Helpers -----------------------------------------------------------------

  function saturate (value : real) return fixed is
  begin
    if value>=real(fixed'high) then return fixed'high;
    elsif value <= real(fixed'low) then return fixed'low;
    end if; return integer(value);
  end saturate;

	-- Whole part of a quotient under each rule. The sign of the remainder decides, as "/" cuts towards zero.
	function round_quotient(dividend,divisor:integer;mode:rounding)return integer is
	  variable quotient, rest : integer;
	  variable negative       : boolean := (dividend < 0) /= (divisor < 0);
	begin
		quotient := dividend / divisor; rest := dividend rem divisor;
		if rest=0 then return quotient; end if;
		case mode is
			when truncate => null;
			when floor => if negative then quotient := quotient - 1; end if;
			when ceiling => if not negative then quotient := quotient + 1; end if;
			when nearest =>
				if abs rest >= (abs divisor + 1) / 2 then
					if negative then quotient := quotient - 1; else quotient := quotient + 1; end if;
				end if;
		end case;
		return quotient;
	end round_quotient;

  -- Conversions -------------------------------------------------------------
  function to_fixed (value : real) return fixed is
  begin
    return saturate(value * real(SCALE));
  end to_fixed;

  function to_fixed(value : integer; mode : rounding := nearest) return fixed is
  begin
    if value > fixed'high / SCALE then return fixed'high; elsif value < fixed'low / SCALE then return fixed'low; else return value * SCALE; end if;
  end to_fixed;

  function to_real (value : fixed) return real is begin return real(value)/real(SCALE); end to_real;

  function to_slv (value : fixed) return std_logic_vector is
    begin return std_logic_vector(to_signed(value,WIDTH)); end to_slv;

  function to_string_fixed (value : fixed; digits : natural := 4) return string is
    variable rest : integer := abs value mod SCALE;
    variable text : string(1 to digits);
    constant whole : string := integer'image(abs value / SCALE);
  begin
    for i in text'range loop
      rest := rest * 10;
      text(i) := character'val(character'pos('0') + rest / SCALE);
      rest := rest mod SCALE;
    end loop;
    if value<0 then return '-' & whole & '.' & text; end if;
    return whole & '.' & text;
  end to_string_fixed;

  -- Arithmetic --------------------------------------------------------------
  -- The product of two numbers does not fit an integer, so one factor is cut into a whole part and a fraction; the parts are multiplied one by one.
  function multiply(a,b:fixed; mode : rounding:=nearest) return fixed is
    variable whole : integer; variable part : integer;
  begin
    if abs (real(a)*real(b)/real(SCALE)) >= real(fixed'high) then return saturate(real(a)*real(b)/real(SCALE)); end if;
    whole := b / SCALE;
    part  := b rem SCALE;
    return a*whole + (a/SCALE)*part -- both exact
      + round_quotient((a rem SCALE)*part,SCALE,mode);
  end multiply;

  function divide (dividend : fixed; divisor : fixed; mode : rounding := nearest) return fixed is
  begin
    if divisor=0 then
      assert false report "fixed_math.divide: division of " & to_string_fixed(dividend) & " by zero" severity warning;
      if dividend < 0 then return fixed'low; else return fixed'high; end if;
    end if;
    return saturate(real(dividend)/real(divisor)*real(SCALE));
  end divide;

  -- Bit by bit from the top; no multiplication is needed.
  function sqrt (value : fixed) return fixed is
    variable low : integer := 0; variable high, middle : integer;
  begin
    if value <= 0 then return 0; end if;
    high := fixed'high;
    search: while high-low > 1 loop
      middle := low + (high-low)/2;
      next search when middle = low;
      if real(middle)*real(middle) <= real(value)*real(SCALE) then low := middle; else high := middle; end if;
      exit search when low=middle and real(low)*real(low)=real(value)*real(SCALE);
    end loop search;
    return low;
  end sqrt;

  function dot_product (a, b : fixed_vector) return fixed is
    alias  x : fixed_vector(0 to a'length-1) is a; alias y:fixed_vector(0 to b'length-1) is b;
    variable sum : real := 0.0;
  begin
    assert a'length = b'length report "dot_product of vectors of unequal length" severity failure;
    for i in x'range loop sum := sum + to_real(multiply(x(i),y(i))) * 1.0E+0; end loop;
    return to_fixed(sum);
  end dot_product;

  function "*" (a, b : complex) return complex is
  begin
    return (re => multiply(a.re, b.re) - multiply(a.im, b.im), im => multiply(a.re, b.im) + multiply(a.im, b.re));
  end "*";
  function "+" (a, b : complex) return complex is
  begin return (a.re+b.re,a.im+b.im); end "+";

  procedure rotate (variable z : inout complex; constant by_sine : in fixed; constant by_cosine : in fixed) is
    variable turned : complex;
  begin
    turned.re := multiply(z.re,by_cosine)-multiply(z.im, by_sine);
    turned.im   := multiply(z.re, by_sine) + multiply(z.im,by_cosine);
    z:=turned;
  end rotate;

  procedure min_max (constant v : in fixed_vector; variable lowest : out fixed; variable highest:out fixed) is
    variable l : fixed := fixed'high;
    variable h : fixed := fixed'low;
  begin
    for i in v'range loop
      if v(i)<l then l:=v(i); end if;
      if v(i)>h then h:=v(i); end if;
    end loop;
    lowest:=l; highest:=h;
  end min_max;

  procedure transpose (signal m : in matrix; signal result : out matrix) is
  begin
    rows : for r in m'range(1) loop
      columns : for c in m'range(2) loop
        result(c,r)<=m(r,c) after 1 ns;
      end loop columns;
    end loop rows;
  end transpose;

end fixed_math;
