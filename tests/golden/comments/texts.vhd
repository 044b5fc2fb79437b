----
--
-- Title ======
-- Title **
--  --
--**
-- Title ##
-- Titled and all --
-- Titled and all- --
------------------------------
-- Title =====================
-- A longer title xyz   ==
-- A longer title xyz==
-- A longer title    **
-- one two three four
-- one two three fou r
-- one two three  four
-- one two three    ----------
--  word-without-any-place
--! one two three four
-- one two three four five six seven eight nine ten

begin begin
----
-- Title ======
-- Title **
--**
-- as wide --
-- A longer title --
------------------------------
-- one two three four
a <= b; -- one two three four
-- at the same column as the first
c := d; --!
begin
-- a b
-- word
-- Title ==
------
