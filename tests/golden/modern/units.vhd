-- Contexts, instances, protected types, entries of generic lists
context suite is library osvvm, work; use osvvm.random.all; end context;
library work; context work.suite, work.other;
package queues is
generic (type item; depth : positive := 8;
impure function image(value : item; as_hex : boolean) return string is <>;
procedure put (a : in item) is dump;
package keys is new work.keys generic map (<>);
package maps is new work.maps generic map (a => <>, b => 2));
generic map (item => bit, depth => 4);
type queue is protected
private variable size : natural;
procedure push(value : item; at : natural := 0); impure function pop return item;
end protected queue;
view sender of link is valid, data : out; ready : in; nested : view inner; end view sender;
function next_of is new work.step [natural return natural] generic map (by => 1);
procedure swap generic (type t; function "<" (l, r : t) return boolean is <>) generic map (t => bit)
parameter (variable a, b : inout t);
function largest generic (type t) (a, b : t) return t;
end package;
package body queues is
type queue is protected body
variable size : natural := 0;
procedure push(value : item; at : natural := 0) is begin size := size + 1; end;
end protected body queue;
constant last : natural := 0;
end package body;
package bytes is new work.queues generic map (item => byte, depth => 16);
configuration fast of lib.top is
for rtl for u1 : cell generic map (n => 1) port map (a => b); end for;
for all : other end for; end for;
end configuration;
entity default is port (force : in bit; s : view (sender) of links(0 to 3);); end;
architecture context_a of lib.default is
for all : cell use entity work.fast; use vunit checks; end for;
for u1 : cell use
entity work.fast port map (a => b);
attribute release : bit;
signal s : bit;
begin
first : -- why
entity work.cell port map (a);
b : block is generic (n : natural); generic map (n => 4); port (x : in bit); port map (x => s);
signal inner : bit;
begin inner <= x; end block b;
end;
