architecture a of e is
-- Initial values and declarations.
constant table : vector(0 to 15) := (0 => 1, 1 => 2, 2 => 4, 3 => 8, 4 => 16, 5 => 32, others => 0);
signal one_name, another_name, a_third_name, a_fourth_name, a_fifth_name, a_sixth_name : std_logic;
attribute mark of a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t : signal is "nothing";
type state is (idle, running, waiting, stopping, stopped, failed, recovering, unknown, resting);
begin
-- Expressions, calls in calls, aggregates, concatenations.
result <= (first_operand and second_operand) or (third_operand xor fourth_operand) or not last_one;
value <= to_integer(unsigned(data(15 downto 8))) + to_integer(signed(data(7 downto 0))) - offset(index);
word <= (31 downto 24 => high_part, 23 downto 16 => mid_part, 15 downto 8 => low_part, others => '0');
text <= "a string of some length" & integer'image(count) & " and another string" & time'image(now) & ".";
q <= a when this_is_a_condition = '1' and that_is_another_condition = '0' and a_third_condition else b;
process begin
-- Conditions, choices, waits, assertions.
if first_condition = '1' and second_condition = '1' and third_condition = '1' or no_condition then
elsif first_condition = '1' and second_condition = '1' and third_condition = '1' or another_one then
end if;
case state_vector & more_of_the_state_vector & still_more_of_the_state_vector & the_rest_of_it is
when idle_state | running_state | waiting_state | stopping_state | stopped_state | failed_state =>
proc(first_parameter, second_parameter(7 downto 0), third_parameter => value, fourth => (1, 2));
end case;
for index in vector_of_elements'low + first_offset to vector_of_elements'high - last_offset - 1 loop
while index_of_the_loop < limit_of_the_loop and not done_already and not failed_already or forced loop
exit when index_of_the_loop > limit_of_the_loop and not done_already and not failed_already_again;
wait until clk'event and clk = '1' and enable = '1' and reset = '0' and another_condition_holds for 10 ns;
assert count_of_the_elements = expected_count_of_the_elements and sum_of_the_elements = expected_sum
report "the number of the elements is " & integer'image(count_of_the_elements) & " and not right";
variable_name := first_function(argument_one, argument_two) * second_function(argument_three, four);
end loop; end loop; end process;
with selector_of_the_inputs select output_of_the_selection <= input_number_one after 10 ns when "0001";
u : cell generic map (width_of_the_data => width_of_the_input_data + width_of_the_output_data + extra_width);
end architecture a_name_of_an_architecture_that_is_as_long_as_nobody_would_ever_write_it_down;
