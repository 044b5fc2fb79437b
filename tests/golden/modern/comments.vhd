/* Licence,
   in its own shape,

     and a list */ entity e is
	/* with	tabs
	     inside   
	*/
port (a : in bit; /* behind
                     code */ b : /* amid */ out bit /* last */); -- line
end; /* one */ /* two */
--QORN-OFF
  q  <= /* as   
     it   stood */  a;
--QORN-ON
architecture a of e is
/* process begin -- no code
end; " */
begin
q <= a /* first */ and b/*second*/; /* third */ -- and a line
/* if */ r <= s; longest_of_all_signals <= first_operand and second_operand and third_operand; /* beyond the line */
p : process begin
/* a */ wait; end process; /* never
closed */
