-- Each branch starts from the state before the first
package p is
`if TOOL = "SIM" then
constant c : integer := 1; constant longer : integer := 2;
  `elsif TOOL = "A" then
function f(a : bit
`else  -- neither
function f(a, b : bit
`end if
) return bit;
end package p;
architecture a of e is
begin
`if FAST then
p : process (all) begin if a then
`warning "slow"
`else
p : process (clk) begin if rising_edge(clk) then `
`end
q <= a; end if;
end process;
`protect begin
`Protect Begin_protected
	aBcD/+9if(end; 

 begin "
  `protect end_protected
end;
