--------------------------
-- Counter of Pulses
--------------------------
library ieee;
use ieee.std_logic_1164.all, ieee.numeric_std.all;

entity PulseCounter is
generic(Width:positive:=8);  -- bits
port(clk,reset:in std_logic; -- both from the board
count:out unsigned(Width-1 downto 0));
end PulseCounter;

architecture rtl of PulseCounter is
type State_T is (Idle,Busy);
constant LIMIT:unsigned(15 downto 0):=X"00FF";
signal value:unsigned(Width-1 downto 0);
begin
process(clk) begin
if clk'event and clk='1' then
if reset='1' then value<=(others=>'0'); -- wins
elsif value(Width-1 downto 4)=LIMIT(Width-1 downto 4) and value(3 downto 0)/=LIMIT(3 downto 0) then value<=value+1; end if;
end if;
end process;
u_out:entity work.OutputStage generic map(Depth=>2) port map(clk=>clk,d=>value,q=>count);
end rtl;
