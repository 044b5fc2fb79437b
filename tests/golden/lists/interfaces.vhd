-- One entry a line, names, modes and colons in columns.
entity e is generic (n : integer := 8; name : string := "e"); port (
 clk,rst : in std_logic ;
d : inout std_logic_vector ( n-1 downto 0 ); q : buffer bit);
end e;

-- Classes widen the column of the colons; modes, that of the types.
entity classes is
  port (signal s : in bit; constant c : in integer; plain : linkage bit;
    variable a, b : out bit);
end classes;

-- Comments and blank lines keep their lines.
entity remarks is
  port ( -- behind the parenthesis
    a : in bit; -- first

    -- about b
    b : out bit -- last
    -- closing
  );
end remarks;

-- The widest name that counts has 29 characters; with 30 it stands out of the column.
entity widths is
  port (abcdefghijklmnopqrstuvwxyz_29 : in bit; abcdefghijklmnopqrstuvwxyz3_30 : in bit; b : out bit);
end widths;
entity wider is
  port (abcdefghijklmnopqrstuvwxyz3_30 : in bit; b : out bit);
end wider;

-- A comma in a type splits, however deep.
entity deep is port (m : matrix(1 to 2, 3 to 4); b : bit); end deep;

-- No parenthesis, no list; a mode at the end of a line.
entity odd is
port;
generic (a : in
  bit; b : inout
  bit);
end odd;
