--=============================================================--
--  Crossing of a main road and a side road                    --
--  Green on the main road unless somebody waits elsewhere.    --
--=============================================================--
LIBRARY ieee; USE ieee.std_logic_1164.ALL;

ENTITY traffic_light IS
	GENERIC( TICKS_PER_SECOND : natural := 1000;
			 MIN_GREEN: natural := 12; YELLOW_TIME : natural:=3;
			 ALL_RED : natural := 2
	);
	PORT
	(
		clk		: IN	std_logic;
		reset		: IN	std_logic;
		side_car	: IN	std_logic;	-- loop in the side road
		walk_button	: IN	std_logic;	-- on either side of the main road
		night		: IN	std_logic;	-- flash yellow, no cycle
		main_red, main_yellow, main_green : OUT std_logic;
		side_red, side_yellow, side_green : OUT std_logic;
		walk,dont_walk : OUT std_logic
	);
END traffic_light;

ARCHITECTURE behaviour OF traffic_light IS

	TYPE phase IS (Main_Go, Main_Stop, Clear_1, Side_Go, Side_Stop, Clear_2, Walk_Go, Walk_Flash, Clear_3, Night_Flash);
	TYPE lamp_set IS RECORD
		red, yellow, green : std_logic;
	END RECORD;
	TYPE durations IS ARRAY (phase) OF natural;

	CONSTANT RED_ONLY    : lamp_set := (red => '1', yellow => '0', green => '0');
	CONSTANT YELLOW_ONLY : lamp_set := ( '0','1','0' );
	CONSTANT GREEN_ONLY:lamp_set:=(green=>'1',OTHERS=>'0');
	CONSTANT DARK : lamp_set := (OTHERS => '0');

	-- in seconds; Main_Go and Night_Flash have no end of their own
	CONSTANT LASTS : durations := (Main_Go => MIN_GREEN, Main_Stop => YELLOW_TIME, Clear_1 => ALL_RED, Side_Go => 8, Side_Stop => YELLOW_TIME, Clear_2 => ALL_RED,
        Walk_Go => 6,       -- a hurried pace over two lanes
        Walk_Flash => 4, Clear_3 => ALL_RED, Night_Flash => 1);

	SIGNAL now_in : phase := Clear_1;
	SIGNAL seconds : natural RANGE 0 TO 255;
	SIGNAL tick : natural RANGE 0 TO TICKS_PER_SECOND - 1; SIGNAL second_over : std_logic;
	SIGNAL main_lamps, side_lamps : lamp_set;
	SIGNAL car_waits, walker_waits, flash, pressed : std_logic;

	FUNCTION after_clearing (car, walker : std_logic) RETURN phase IS
	BEGIN
		IF walker = '1' THEN RETURN Walk_Go;
		ELSIF car='1' THEN RETURN Side_Go; END IF;
		RETURN Main_Go;
	END after_clearing;

BEGIN

	--- Clock of seconds ---
	PROCESS (clk)
	BEGIN
		IF rising_edge(clk) THEN
			second_over <= '0';
			IF reset='1' THEN tick <= 0;
			ELSIF tick = TICKS_PER_SECOND-1 THEN
				tick <= 0;
				second_over <= '1';
			ELSE
				tick <= tick+1;
			END IF;
		END IF;
	END PROCESS;

	-- The push button bounces for some milliseconds, so it counts only after it has been closed for a while.
	debounce : BLOCK
		SIGNAL history : std_logic_vector(0 TO 7);
		CONSTANT CLOSED : std_logic_vector(history'RANGE) := (OTHERS => '1'); -- eight samples in a row
	BEGIN
		sample: PROCESS (clk)
		BEGIN
			IF rising_edge(clk) THEN
				IF reset='1' THEN history <= (OTHERS => '0');
				ELSE history <= walk_button & history(0 TO history'RIGHT-1); END IF;
			END IF;
		END PROCESS;

		pressed <= '1' WHEN history = CLOSED ELSE '0';			-- both buttons are wired to the one input, which is why nobody can tell them apart here
	END BLOCK debounce;

	-- Requests are kept until they are served.
	requests : PROCESS (clk)
	BEGIN
		IF rising_edge(clk) THEN
			IF reset = '1' OR now_in = Side_Go THEN car_waits <= '0'; ELSIF side_car = '1' THEN car_waits <= '1'; END IF;
			IF reset = '1' OR now_in = Walk_Go THEN walker_waits <= '0'; ELSIF pressed = '1' THEN walker_waits <= '1'; END IF;
		END IF;
	END PROCESS requests;

	--- The machine ---
	machine : PROCESS (clk)
		VARIABLE over : boolean;

        -- Enters a phase and starts its time.
		PROCEDURE enter (p : IN phase) IS
		BEGIN
			now_in <= p; seconds <= 0;
		END enter;
	BEGIN
		IF rising_edge(clk) THEN
			IF reset = '1' THEN
				enter(Clear_1); flash <= '0';
			ELSIF second_over = '1' THEN
				flash <= NOT flash;
				seconds <= seconds + 1;
				over := seconds + 1 >= LASTS(now_in);

				CASE now_in IS
					WHEN Main_Go =>
						IF night = '1' AND over THEN enter(Night_Flash);
						ELSIF over AND (car_waits = '1' OR walker_waits = '1') THEN enter(Main_Stop);
						END IF;
					WHEN Main_Stop  => IF over THEN enter(Clear_1); END IF;
					WHEN Clear_1    => IF over THEN enter(after_clearing(car_waits, walker_waits)); END IF;
					WHEN Side_Go    => IF over AND side_car = '0' THEN enter(Side_Stop); -- the last car is through
						ELSIF seconds >= 3 * LASTS(Side_Go) THEN enter(Side_Stop); -- or the others have waited long enough
						END IF;
					WHEN Side_Stop  => IF over THEN enter(Clear_2); END IF;
					WHEN Walk_Go	 => IF over THEN enter(Walk_Flash); END IF;
					WHEN Walk_Flash => IF over THEN enter(Clear_3); END IF;
					WHEN Clear_2|Clear_3 =>
						IF over THEN
							IF walker_waits = '1' AND now_in /= Clear_3 THEN enter(Walk_Go);
							ELSE enter(Main_Go);
							END IF;
						END IF;
					WHEN Night_Flash=>
						IF night = '0' THEN
							enter( Clear_1 );
						END IF;
				END CASE;
			END IF;
		END IF;
	END PROCESS machine;

	--- Lamps ---
	main_lamps <= GREEN_ONLY WHEN now_in = Main_Go ELSE
                  YELLOW_ONLY WHEN now_in = Main_Stop OR (now_in = Night_Flash AND flash = '1') ELSE DARK WHEN now_in = Night_Flash ELSE RED_ONLY;
	WITH now_in SELECT side_lamps <=
		GREEN_ONLY WHEN Side_Go,
		YELLOW_ONLY WHEN Side_Stop,
		DARK WHEN Night_Flash,
		RED_ONLY WHEN OTHERS;

main_red <= main_lamps.red;  main_yellow <= main_lamps.yellow;  main_green <= main_lamps.green;
side_red <= side_lamps.red;  side_yellow <= side_lamps.yellow;  side_green <= side_lamps.green;

	walk      <= '1' WHEN now_in=Walk_Go ELSE flash WHEN now_in=Walk_Flash ELSE '0';
	dont_walk<='0' WHEN now_in=Walk_Go OR now_in=Walk_Flash OR now_in=Night_Flash ELSE '1';

	never_both : ASSERT NOT (main_lamps.green = '1' AND side_lamps.green = '1')
		REPORT "green on both roads"
		SEVERITY error;

END behaviour;
