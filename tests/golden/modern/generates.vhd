-- Alternatives of generate statements, with and without labels and ends of their own
architecture rtl of alu is
begin
wide: if width > 32 generate
signal carry : bit;
begin
sum <= a + b + carry;
elsif mid: width > 8 generate begin sum <= a + b; end mid;
else none: generate -- nothing left to add
end;
end generate wide;
kind: case mode generate
when add: 0 | 1 => signal carry : bit; begin sum <= a; end add;
when 2 => inner: if fast generate q <= a; else generate
cell: entity work.slow generic map (n => 2) port map (a => a); end generate;
when others =>
end generate kind;
each: for i in sum'range generate begin q(i) <= sum(i); end; end generate;
done <= '1';
end architecture;
