-- Operators, literals, assignments, external names and properties
architecture sim of tb is
alias state is <<signal .tb.dut.state:state_t>>; alias to_int is convert[word return integer];
constant mask : bits := 8X"FF" & 12UB"10_10" & X"1-ZZ" & 16d"10";
signal part : mask'element; signal same : mask'subtype;
begin
default clock is rising_edge(clk);
sequence s is {a; b[*2]; c[->1]}; property p(a : bit) is always {a} |=> s;
property follows(first_one : bit; second_one : bit) is always {first_one; second_one} |=> {second_one};
check : assert always {req; not ack} |-> next! ack report "no ack" severity error;
cover {a; b} report "seen"; assume a; restrict {a[+]};
main : process (all) begin
neg := b /* inline */ - c;
count := 0 when reset else (others => '0') when clear ?= '1' or full = "00" else count + 1;
sums(3) := (1 when a else 2);
with mode select? speed := 10 when "1-", 20 when others;
case? req is when ('1', others => '0') => x := y ?/= z; when others => null; end case?;
<< signal dut.q : bit >> <= force '1'; q <= release;
q <= force in '0' when ?? a else '1' when b!c else (b when c else d);
exit main when (a, b) = (c => 1, d => 2);
report "far beyond the end of the line, and with blanks behind the semicolon";   
return f(a => 1) when x else (others => 0); return when done;
check(<<constant ^.dut.n : natural>> = 4, "n");
assume := cover(2); release(3);
end process;
end;
vunit checks (tb(sim)) { signal seen : bit;
a1 : assert always (a -> next {b; c}); }
