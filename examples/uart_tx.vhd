---------------------------------------------------------------
-- Serial transmitter
-- 8N1 by default; parity and a second stop bit by generics
---------------------------------------------------------------
library IEEE;
use IEEE.std_logic_1164.all; use IEEE.numeric_std.all;

entity uart_tx is
  generic (
    CLOCK_HZ:integer:=50_000_000;     -- frequency of clk
	BAUD  : integer := 115_200;  -- bits a second
    DATA_BITS : integer range 5 to 9 := 8;
    PARITY    : character := 'N';  -- 'N' none, 'E' even, 'O' odd
      STOP_BITS:positive:=1 );
  PORT (
  clk, rst_n  : in  std_logic;
	-- from the processor
  tx_data : in std_logic_vector(DATA_BITS-1 downto 0);
  tx_valid: in std_logic;	-- a word stands at tx_data
  tx_ready : out std_logic;   -- the word has been taken
	-- to the line
  txd: out std_logic;
  busy :out std_logic
  );

    function divisor (clock : integer; rate : integer) return integer is
    begin
      return (clock+rate/2)/rate;   -- to the nearest
    end divisor;

begin
    assert divisor(CLOCK_HZ, BAUD) >= 4 report "uart_tx: the clock is too slow for this rate, at least four ticks a bit are needed" severity failure;
    assert PARITY='N' or PARITY='E' or PARITY='O' report "uart_tx: PARITY is none of N, E, O" severity failure;
end uart_tx;


architecture RTL of uart_tx is

-- Constants ---------------------------------------------------
constant TICKS : integer := divisor(CLOCK_HZ,BAUD);
constant FRAME_BITS: integer:= 1 + DATA_BITS + boolean'pos(PARITY /= 'N') + STOP_BITS;

-- Types =======================================================
type state_type is (idle, load, start_bit, data_bits_out, parity_bit, stop_bit);
subtype tick_count is integer range 0 to TICKS-1; subtype bit_count is integer range 0 to DATA_BITS;

-- Signals -----------------------------------------------------
signal state,next_state : state_type;
signal ticks_left:tick_count:=0;
signal bits_left : bit_count := 0;
signal shifter : std_logic_vector(DATA_BITS-1 downto 0) := (others=>'1');
signal parity_so_far, line_out : std_logic;
signal bit_done : boolean;   -- true in the last tick of a bit
signal frames_sent: unsigned(15 downto 0);
signal stops_left : integer range 0 to 3;

  attribute keep : string; attribute keep of bit_done : signal is "true";

	function odd_parity(v: std_logic_vector) return std_logic is
		variable p : std_logic := '0';
	begin
		for i in v'range loop p := p xor v(i); end loop;
		return p;
	end odd_parity;

begin

  ---------------------------------------------------
  -- Tick counter: one bit lasts TICKS cycles of clk
  ---------------------------------------------------
  ticker : process (clk, rst_n)
  begin
    if rst_n='0' then ticks_left<=0;
    elsif rising_edge(clk) then
	if state = idle or state=load then
		ticks_left <= TICKS - 1;
      elsif ticks_left = 0 then
          ticks_left <= TICKS - 1;
      else  ticks_left <= ticks_left - 1;
	end if;
    end if;
  end process ticker;

  bit_done <= ticks_left = 0 and state /= idle and state /= load;

-- State register
  process (clk,rst_n)
  begin
  if rst_n = '0' then
     state<=idle;
  elsif clk'event and clk = '1' then
     state <= next_state;
  end if;
  end process;

  -- The next state. A new word is taken in the last stop bit already, so that frames
  -- follow each other without a gap if the processor is quick enough.
  NEXT_STATE_LOGIC: process (state, tx_valid, bit_done, bits_left, stops_left)
  begin
    next_state <= state; -- stay, unless told otherwise below
    case state is
      when idle =>
	  if tx_valid='1' then next_state <= load; end if;
      when load => next_state <= start_bit;
      when start_bit => if bit_done then next_state <= data_bits_out; end if;
      when data_bits_out=>
        if bit_done and bits_left = 0 then
          if PARITY = 'N' then
            next_state<=stop_bit;
          else next_state<=parity_bit;
          end if;
        end if;
      when parity_bit =>
        if bit_done then
          next_state <= stop_bit;
        end if;
      when stop_bit =>
        if bit_done and stops_left = 0 then
          if tx_valid = '1' then next_state <= load; else next_state <= idle; end if;
        end if;
    end case;
  end process;

    SHIFT : PROCESS (CLK, RST_N)
    BEGIN
        IF RST_N = '0' THEN
            SHIFTER <= (OTHERS => '1'); BITS_LEFT <= 0; PARITY_SO_FAR <= '0'; STOPS_LEFT <= 0;
            FRAMES_SENT <= (OTHERS => '0');
        ELSIF RISING_EDGE(CLK) THEN
            CASE STATE IS
                WHEN LOAD =>
                    SHIFTER <= TX_DATA;
                    BITS_LEFT <= DATA_BITS - 1;
                    STOPS_LEFT <= STOP_BITS - 1;
                    IF PARITY = 'O' THEN PARITY_SO_FAR <= NOT ODD_PARITY(TX_DATA); ELSE PARITY_SO_FAR <= ODD_PARITY(TX_DATA); END IF;
                WHEN DATA_BITS_OUT =>
                    IF BIT_DONE AND BITS_LEFT /= 0 THEN     -- least significant bit first
                        SHIFTER <= '1' & SHIFTER(SHIFTER'LEFT DOWNTO 1);
                        BITS_LEFT <= BITS_LEFT - 1;
                    END IF;
                WHEN STOP_BIT =>
                    IF BIT_DONE THEN
                        IF STOPS_LEFT = 0 THEN FRAMES_SENT <= FRAMES_SENT + 1;
                        ELSE STOPS_LEFT <= STOPS_LEFT - 1;
                        END IF;
                    END IF;
                WHEN OTHERS => NULL;
            END CASE;
        END IF;
    END PROCESS SHIFT;

-- Outputs -----------------------------------------------------

with state select
  line_out <= '0' when start_bit,
    shifter(0) when data_bits_out,
	parity_so_far when parity_bit,
  '1' when others;   -- the line rests high

txd<=line_out;
busy      <= '0' when state = idle else '1';
tx_ready <= '1' when state=load else '0';

-- synthesis translate_off
  watch : process
    variable began : time;
  begin
    wait until state = start_bit;
    began:=now;
    wait until state=idle or state = load;
    assert now-began <= (FRAME_BITS+1)*TICKS*(1 sec/CLOCK_HZ) report "a frame of " & integer'image(FRAME_BITS) & " bits took " & time'image(now - began) severity warning;
  end process watch;
-- synthesis translate_on

end RTL;
