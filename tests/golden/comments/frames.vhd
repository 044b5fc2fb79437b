--
--------------------------------
-- A title in a frame         --
--------------------------------
entity e is
--****************************
-- Filled ======
-- Stars **
-- Tight--
-- Of two kinds -=
---
--
--  --
-- Exactly as wide as the line, which is 76 columns at this indentation   --
-- One more than the line, which is 76 columns at this indentation here    --
-- Filler beyond the margin is taken off ==================================================
-- A title that is longer than the line and has nothing to give away in its frame at all --
------------------------------------------------------------------------------------------------
end e; ------
package p is
signal a_long_name_of_a_signal : bit_vector(7 downto 0); -- Beside ====
signal b : bit; -- Beside --
signal c : bit; --------------------------------------------------------
end p;
