-- A break empties the blanks and line ends after it, however many lines that joins.
entity e is
port (first, second : in bit; third : out bit);
end e;
architecture r of e is
begin
first <= second and

third; -- why
end r;
