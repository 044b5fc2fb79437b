process begin
-- Consecutive lines share a column.
a := 1;
longer := 2;
x(3 downto 0) := 3;
r.field(1 to 2) := 4;

-- A blank line, a comment, another statement and a second one on the line end the run.
b := 1;
-- here
second := 2;
c := 3;
call(c);
third_one := 4; d := 5;
e := 6;

-- A target of 19 characters counts, one of 20 stays out.
nineteen_characters := 1;
f := 2;

twenty_characters_ab := 1;
g := 2;
hh := 3;

-- A statement that goes on over lines keeps the run; one that begins over lines ends it.
i := 1 +
  2;
jjj := 3;
k
  := 4;
l := 5;
-- Branches on one line with their assignments.
if a then m := 1; end if;
nnn := 2;
end process;

-- Signals, with labels and the two kinds of ranges.
a <= b;
lab : ccc <= d;
x1(3 downto 0) <= y;
x2(1 to 2) <= y;
-- A call in the target.
f(1, 2) <= a;
g <= (1, 2);
<= b;
return a <= b;
