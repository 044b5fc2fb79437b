-- As wide as the line, and one more.
abc <= "123456789 123456789 123456789 123456789 123456789 123456789 123456" & b;
abc <= "123456789 123456789 123456789 123456789 123456789 123456789 123456" & cd;
-- Nothing to break at all, then something behind it.
a_name_without_any_place_to_break_that_goes_on_and_on_beyond_the_right_margin_of_the_line;
abc <= "a string without any place to break that goes on and on beyond the margin" & d;
-- Selected names hold together; the token before a point is no place.
library_name.package_name.function_name <= package_name.record_name.element_name.sub_element_name;
-- Never in front of an assignment, but behind it where that gains room.
procedure p (name_of_a_parameter : string := "a default that reaches beyond the margin of the line");
a_rather_long_target_of_an_assignment_to_a_variable_of_a_process_with_names := another_long_name;
-- A blank in front of a parenthesis is a place, emptied or not.
a_rather_long_name_of_a_function_that_is_called_here_with_one_parameter_only (the_parameter);
-- Code and a comment that share a line that is too long.
foo <= first_signal_of_some_length and second_signal_of_some_length and third_signal; -- comment
a <= b; -- short code, and a comment that does not fit
foo <= first_signal_of_some_length and second_signal_of_some_length and third; -- long comment beside
-- The line below is broken over a comment on its own line.
foo <= first_signal_of_some_length and second_signal_of_some_length -- comment
and third_signal_of_some_length and fourth_signal_of_some_length and fifth_signal_of_some_length

and sixth;
-- Blank lines behind a break.
call(first_parameter_of_some_length, second_parameter_of_some_length, third_parameter_of_it);
-- A comment under one that was moved below its code.
a_target_with_a_name_that_takes_the_better_part_of_one_line := f(a, -- beyond the margin
-- and under it
b);
