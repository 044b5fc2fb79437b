-- A long comment on a line of its own is cut at a blank, and its further pieces stand below it on lines of their own.
package p is
--! The mark of a continuation is always the same, whatever the comment began with in the source.
-- Averylongwordthatstandsaloneonitslineandcannotbecutanywherebecauseithasnoblankatallinit

-- The comments behind a long one go with it, across blank lines, until some code comes at last.
-- short

-- Another one that is far too long for its line, and that is cut in the same way as the first one.
signal a : bit; -- A long comment beside the code keeps its column in all its lines.
signal b : bit; -- The next one, too, wherever it stands, as long as no code is between.
      -- One that stood under it and that is too long for the room that is left to it there.

signal a_name_of_a_signal, b_name : std_logic_vector(7 downto 0); -- no room beside it
signal a_name_of_a_signal, b_name : std_logic_vector(7 downto 0); -- no room beside it, and more than one line
signal q : bit; -- Averylongwordthatstandsaloneonitslineandcannotbecut
constant z : integer := 1; -- Beside the code with a frame that is too long by far ==
-- Before a pragma a run of comments ends, but this one is too long for the line anyway. --
--qorn-on
-- Behind the pragma there is another one, just as long as the one that stands before it. ==
end p;
