process begin
-- Loops with and without labels and schemes.
for i in 0 to 3 loop a(i) := b(i); end loop;
while a < b loop a := a + 1; end loop;
loop exit when done; next; end loop;
outer : for i in x'range loop
inner: while true loop exit outer when a = '1'
or b; next inner when c; end loop inner; end loop outer;
all_of : loop null; end loop;
-- Waiting.
wait; wait on a, b until a = '1' for 10 ns;
w : wait until clk'event and
clk = '1';
-- Assertions: each clause on a line of its own.
assert a = b report "difference" severity error;
assert a severity note; report "done"; report "done" severity note;
check : assert a report "a" & "b"; said: report "x";
end process;

-- Generate statements.
g1 : for i in 0 to 3 generate a(i) <= b(i); end generate;
g2: if x = 1 generate
begin
u : cell port map (a => b);
end generate g2;
for i in 0 to 3 generate x <= y; end generate;
