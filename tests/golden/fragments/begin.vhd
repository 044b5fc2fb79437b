        begin
a:=b;
  if c then d:=e;end if;
 end process;
    end a;
