      else
   x := y;
 end if;
z := 1;
end if;
z := 2;
end if;
z := 3;
