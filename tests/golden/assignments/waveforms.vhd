architecture a of e is begin
-- Elements one below the other.
clk <= '0', '1' after 5 ns, '0' after 10 ns;
longer <= transport a after 1 ns; b <= reject 2 ns inertial c after 3 ns, d after 4 ns;
bus8 <= f(1, 2), (others => '0') after 1 ns;

-- Conditions.
a <= b when sel = '1' else c when x else d;
e <= guarded f when g;
l1 : postponed h <= transport i after 1 ns, j after 2 ns when k else l;

-- Selections.
with sel select
  m <= a when "00",
  b when "01" | "10", c when others;
l2: with sel select n <= a, b after 1 ns when '1', c when others;
o <= p;
end a;
