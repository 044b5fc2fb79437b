architecture a of e is begin
-- Arrows in a column; entries without one stand under the actuals.
u1 : cell generic map (n => 4, name => "u1") port map (clk => clk, data_in(3 downto 0) => bus4, open, f(x, y));
-- No arrow at all.
u2 : cell port map (a, b(1, 2),
  c);
-- An aggregate as actual, a conversion as formal.
u3 : cell port map (v => (others => '0'), to_bit(q) => s);
-- A formal of 19 characters sets the column, one of 20 stays out.
u4 : cell port map (nineteen_characters => a, b => c);
u5 : cell port map (twenty_characters_ab => a, b => c);
-- Comments.
u6 : cell port map ( -- first
  a => b, -- behind
  -- above
  c => d -- last
);
-- No parenthesis; one entry.
u7 : cell port map;
u8 : cell generic map (1);
x <= y;
end a;
