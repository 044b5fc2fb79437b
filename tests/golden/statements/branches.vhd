process begin
-- Everything on one line of the source.
if a = '1' then b := c; elsif x then y := z; else d := e; end if;
-- A condition over several lines, "then" alone on one.
if a = '1'
and b = '0'
then
null;
end if;
-- Choices; a statement behind the arrow; a label.
case sel is when "00" => a := b; c := d; when "01" ! "10" | "11" =>
when others => null; end case;
lab : case x is
when 1 => if a then b := c; end if;
case y is when others => null; end case;
end case lab;
l2: if a then null; end if l2;
-- A comment between the branches, and beside a word.
if a then -- yes
-- go
b := c;
-- otherwise
else -- no
b := d;
end if; -- done
end process;
-- A branch without its head stands at the margin.
else
a := b;
end if;
