-- Two comments that a carriage return joins to one line, which is then too long for it.-- The second one.
a <= b; -- short-- and another one that is far too long for the line, since it stands behind the first
-- one-- two-- three

a_name_of_a_signal <= another_name_of_a_signal and a_third_name_of_a_signal; -- four-- five
c <= d;
-- A pragma joined behind a comment is measured anew, wherever it stands, so that a long one is moved.--qorn-on
c <= e;
-- A pragma joined behind a comment is measured anew, wherever it stands, so that a long one is moved.--qorn-on and the reasons why that should be so, which nobody will ever read to their end
d <= f;
