package p is
-- One column for the names, one for the colons of a run.
signal a, b : std_logic;
constant depth:integer:=5;
variable v : bit_vector ( 7 downto 0 ):="00000000";
file f : text;
alias x : bit is y;
shared variable counter : natural;

-- A blank line starts another run, and so does a comment.
signal long_name_of_a_signal : bit;
signal short : bit;
-- here
signal mid_size : bit;
signal s : bit;

-- Names from the limit on stand out of the run: 19 characters, then 20.
signal nineteen_characters : bit;
signal twenty_characters_ab : bit;
signal c : bit;

-- Declarations over several lines, two on one line.
signal d
  : bit; signal e : bit;
constant table_of_values : vector := (1, 2,
 3);

-- No run: aliases of operators, file types, groups and attributes.
alias "and" is other;
type t is file of integer;
subtype small is integer range 0 to 7;
attribute keep : string; attribute keep of a : signal is "true";
group pin : pins (a, b);
group pins is (signal, signal);
group path is (signal <>, label <>);
group bus3 is (signal, label, group);
end p;
