
-- above
          a <= b; -- beside
c<=d;
end;
end;
e <= f;
end;
g <= h;
