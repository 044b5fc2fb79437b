-- A small queue and its test bench ------------------------------------------
library ieee; use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity fifo is
  generic (WIDTH : positive := 8; DEPTH:positive:=16);
  port (clk : in std_logic; rst : in std_logic;
        wr_en : in std_logic; wr_data : in std_logic_vector(WIDTH-1 downto 0);
        rd_en : in std_logic; rd_data : out std_logic_vector(WIDTH-1 downto 0);
        full, empty : out std_logic);
end fifo;

architecture ring of fifo is
  type store is array(0 to DEPTH-1) of std_logic_vector(WIDTH-1 downto 0);
  signal words : store; signal head,tail : natural range 0 to DEPTH-1:=0; signal used : natural range 0 to DEPTH := 0;
begin
  process(clk)
    variable now_used : natural range 0 to DEPTH;
  begin
    if rising_edge(clk) then
      if rst='1' then head<=0; tail<=0; used<=0;
      else
        now_used := used;
        if wr_en='1' and now_used<DEPTH then
          words(head) <= wr_data; head <= (head+1) mod DEPTH; now_used := now_used + 1;
        end if;
        if rd_en = '1' and used > 0 then tail <= (tail+1) mod DEPTH; now_used := now_used-1; end if;
        used <= now_used;
      end if;
    end if;
  end process;
  rd_data<=words(tail); full <= '1' when used=DEPTH else '0'; empty <= '1' when used = 0 else '0';
end ring;

-------------------------------------------------------------------------------
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;
use std.textio.all;

entity fifo_tb is
end fifo_tb;

architecture test of fifo_tb is

	-- Component Declarations ******************************************
	component fifo
	generic (WIDTH : positive; DEPTH : positive);
	port (clk : in std_logic;
		rst : in std_logic;
		wr_en : in std_logic;
		wr_data : in std_logic_vector(WIDTH-1 downto 0);
		rd_en : in std_logic;
		rd_data : out std_logic_vector(WIDTH-1 downto 0);
		full, empty : out std_logic);
	end component;

	component tap
		generic(NUMBER : natural);
		port(level : in std_logic; high : out boolean);
	end component;

  constant PERIOD : time := 10 ns; constant LANES:positive:=3; constant DEPTH: positive := 4;
  subtype word is std_logic_vector(7 downto 0); type word_array is array (1 to LANES) of word;
  signal clk: std_logic:='0';
  signal rst : std_logic := '1';
  signal wr_en, rd_en, full, empty : std_logic_vector(1 to LANES) := (others=>'0');
  signal wr_data, rd_data : word_array := (others => (others => '0'));
  signal done : boolean := false;
  signal was_full : boolean;
  shared variable errors : natural := 0;

  -- Compares, counts and reports. The text says what was looked at.
  procedure check (got, wanted : in word; what : in string) is
  begin
    if got /= wanted then
      errors := errors + 1;
      report what & ": got " & integer'image(to_integer(unsigned(got))) & ", wanted " & integer'image(to_integer(unsigned(wanted))) severity error;
    end if;
  end check;

  procedure tick (signal c : in std_logic; n : in positive := 1) is
  begin
    for i in 1 to n loop wait until rising_edge(c); end loop;
    wait for PERIOD/10;     -- past the edge
  end tick;

begin

  clk <= not clk after PERIOD/2 when not done else '0';
  rst<='1','0' after 3 * PERIOD;

  -- One queue a lane, each twice as deep as the one before it
  lane : for i in 1 to LANES generate
  begin
    queue : fifo generic map(WIDTH=>8, DEPTH=>DEPTH*2**(i-1))
      port map(clk=>clk, rst=>rst, wr_en=>wr_en(i), wr_data=>wr_data(i),
        rd_en=>rd_en(i), -- one word a cycle
        rd_data=>rd_data(i), full=>full(i), empty=>empty(i));

    first_only : if i = 1 generate
      probe : tap generic map (NUMBER => i) port map (level => full(i), high => was_full);
    end generate first_only;
  end generate lane;

  -- Main sequence *************************************************************
  stimulus: process
    variable l : line;
  begin
    wait until rst = '0'; tick(clk);
    assert empty = "111" report "not empty after reset" severity error;

    -- fill lane 1 to the brim and one word beyond
    for n in 0 to DEPTH loop
      wr_data(1)<=std_logic_vector(to_unsigned(16#A0#+n,8)); wr_en(1)<='1';
      tick(clk);
    end loop;
    wr_en(1)<='0';
    assert full(1) = '1' and was_full
      report "lane 1 should be full" severity error;

    -- and empty it
    for n in 0 to DEPTH-1 loop
      check(rd_data(1),std_logic_vector(to_unsigned(16#A0#+n,8)),"lane 1, word " & integer'image(n));
      rd_en(1)<='1'; tick(clk); rd_en(1)<='0';
    end loop;
    assert empty(1)='1' report "lane 1 should be empty" severity error;

    -- reading and writing at once keeps the level
    wr_en<=(others=>'1'); wr_data<=(others=>X"3c");
    tick(clk);
    rd_en<=(others=>'1');
    tick(clk, 5);
    wr_en <= (others => '0'); rd_en <= (others => '0');
    tick(clk);
    for i in 1 to LANES loop
      if full(i) = '1' or empty(i) = '1' then errors := errors + 1; report "lane " & integer'image(i) & " lost its level" severity error; end if;
      check(rd_data(i), X"3C", "level");
    end loop;

    write(l, string'("fifo_tb: ")); write(l, errors); write(l, string'(" errors at ")); write(l, now); writeline(output, l);
    done <= true;
    wait;
  end process stimulus;

  watchdog : process
  begin
    wait until done for 1000*PERIOD;
    assert done report "the test bench hangs" severity failure;
    wait;
  end process;

end test;

-- Tap -------------------------------------------------------------------------
library ieee; use ieee.std_logic_1164.all;
entity fifo_tap is
  generic(NUMBER:natural); port(level:in std_logic; high:out boolean);
end fifo_tap;
architecture plain of fifo_tap is begin
  process(level) begin
    high<=level='1';
    if level='1' then report "lane " & integer'image(NUMBER) & " is full" severity note; end if;
  end process;
end plain;

-- Which entity stands for which component
configuration fifo_tb_cfg of fifo_tb is
  for test
    for lane
      for queue : fifo use entity work.fifo(ring); end for;
      for first_only
        for probe:tap use entity work.fifo_tap(plain) generic map (NUMBER=>NUMBER) port map (level=>level,high=>high); end for;
      end for;
    end for;
  end for;
end fifo_tb_cfg;
