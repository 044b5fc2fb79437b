label_b : work.c
-- The statement is still open.
port map (d);
