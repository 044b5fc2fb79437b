-- A block with every clause; what follows a clause stays on its line.
architecture a of e is begin
b1 : block generic (width : integer := 8);
generic map (width => 16);
port (d : in bit; q : out bit);
port map (d => x, q => y);
signal s : bit;
begin
q <= d;
end block b1;

-- A guard; no header; "begin" starts a line all the same.
b2: block (clk = '1') is signal t : bit; begin
t <= guarded d;
end block;
block begin end block;

-- Processes: sensitivity, "is", neither, a label, postponed.
p1: process (clk,
rst) is variable v : integer; begin v := 1; end process p1;
process begin wait; end process;
process is begin null; end process;
no_label process begin null; end process;
p2 : postponed process (all_of(1), x)
begin
null;
end postponed process p2;
postponed process begin null; end postponed process;
-- Sensitivity that another list follows.
process (a) shared variable v : bit; begin null; end process;
end a;
