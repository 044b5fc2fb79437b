"""The inputs of bench/run.

A shape is a way to write an input of any size: `text(n)` gives it with n repeated parts, and `full` is
the n at which it is timed. `config` and `options` are what the formatter is run with. Growth is watched from n to 2n, so
a shape repeats one thing and nothing else in it grows.
"""

import os
import re
from dataclasses import dataclass, field, replace

EXAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples")


@dataclass(frozen=True)
class Shape:
    name: str
    text: object  # n -> str
    full: int
    config: str = ""
    options: tuple = field(default=())
    group: str = "shape"


def shape(name, full, text, config="", group="shape"):
    return Shape(name, text, full, config, (), group)


# --- Ordinary code ---


def ordinary(n):
    """n copies of the examples, each with names of its own."""
    sources = []
    for file in sorted(os.listdir(EXAMPLES)):
        if file.endswith(".vhd"):
            with open(os.path.join(EXAMPLES, file)) as stream:
                source = stream.read()
            unit = re.compile(r"\b%s\b" % re.escape(file[:-4]))
            sources.append(unit.sub("%s_@" % file[:-4], source))
    whole = "".join(sources)
    return "".join(whole.replace("_@", "_%d" % i) for i in range(n))


def copies_for(size):
    return size // len(ordinary(1))


# --- Entries, one after another, in three layouts ---

ON_ONE_LINE = ("on one line", lambda entries, sign: (sign + " ").join(entries))
ONE_A_LINE = ("one a line", lambda entries, sign: (sign + "\n").join(entries))


def eight(entries, sign):
    lines = [(sign + " ").join(entries[i : i + 8]) for i in range(0, len(entries), 8)]
    return (sign + "\n").join(lines)


LAYOUTS = (ON_ONE_LINE, ONE_A_LINE, ("eight a line", eight))

ENTRIES = {
    "literals": lambda i: '"%08d"' % (i % 90000000),
    "calls": lambda i: "to_unsigned(%d, 16)" % i,
    "aggregates": lambda i: "%d => (a => f(%d), b => '1')" % (i, i),
}


def table(entry, layout):
    def text(n):
        entries = [entry(i) for i in range(n)]
        return "constant t : table := (%s);\n" % layout(entries, ",")

    return text


def tables():
    for kind, entry in ENTRIES.items():
        for where, layout in LAYOUTS:
            yield shape("table of %s, %s" % (kind, where), 100000, table(entry, layout))
            yield shape(
                "table of %s, %s, style B" % (kind, where), 100000, table(entry, layout), "STYLE B\n"
            )


# --- One long expression ---

PLACES = {
    "signal assignment": ("s <= ", ";\n", ""),
    "signal assignment, style B": ("s <= ", ";\n", "STYLE B\n"),
    "variable assignment": ("v := ", ";\n", ""),
    "condition": ("if ", " then\nnull;\nend if;\n", ""),
    "argument": ("p(", ");\n", ""),
}


def operands(place, operator, operand, layout):
    before, behind, _ = PLACES[place]
    return lambda n: before + layout([operand] * n, operator) + behind


def expressions():
    for place, (_, _, config) in PLACES.items():
        yield shape("%s of a and b and ..." % place, 1000000, operands(place, " and", "a", ON_ONE_LINE[1]), config)
        yield shape('%s of "x" & "y" & ...' % place, 1000000, operands(place, " &", '"x"', eight), config)


# --- Long lists ---


def joined(before, entry, sign, behind):
    return lambda n: before + sign.join(entry(i) for i in range(n)) + behind


def argument(i):
    return "f(%d, a)" % i if i % 4 == 0 else "a%d" % i


def lists():
    port_map = joined("u : e port map (", lambda i: "p%d => s%d" % (i, i), ", ", ");\n")
    port = joined("entity e is port (", lambda i: "p%d : in bit" % i, "; ", "); end e;\n")
    for name, config in (("", ""), (", style B", "STYLE B\n"), (", format LIST", "ASSOCIATIONLIST LIST\nINTERFACEIDENTIFIERLIST LIST\n")):
        yield shape("port map" + name, 100000, port_map, config)
        yield shape("port clause" + name, 100000, port, config)
    for kind, entry in ENTRIES.items():
        for where, layout in LAYOUTS[:2]:
            mapped = lambda n, entry=entry, layout=layout: (
                "u : e generic map (t => (%s));\n" % layout([entry(i) for i in range(n)], ",")
            )
            yield shape(
                "generic map with a table of %s, %s, format LIST" % (kind, where),
                100000, mapped, "ASSOCIATIONLIST LIST\n",
            )
    elements = joined("type r is record\n", lambda i: "e%d : bit;\n" % i, "", "end record;\n")
    literals = joined("type t is (", lambda i: "l%d" % i, ", ", ");\n")
    for name, config in (("", ""), (", style B", "STYLE B\n")):
        yield shape("record" + name, 100000, elements, config)
        yield shape("enumeration" + name, 100000, literals, config)
    yield shape("case", 100000, joined("case c is\n", lambda i: "when %d => a := b;\n" % i, "", "end case;\n"))
    yield shape("choices", 100000, joined("case c is\nwhen ", lambda i: "c%d" % i, " | ", " => null;\nend case;\n"))
    yield shape("arguments of a call", 100000, joined("p(", argument, ", ", ");\n"))
    yield shape("arguments in an assignment", 100000, joined("a <= p(", argument, ", ", ");\n"))
    yield shape("design units", 100000, joined("", lambda i: "entity e%d is end e%d;\n" % (i, i), "", ""))
    yield shape("declarations in a run", 100000, joined("", lambda i: "signal s%d : bit;\n" % i, "", ""))
    yield shape("constants in a run", 100000, joined("", lambda i: "constant c%d : bit := '0';\n" % i, "", ""))
    yield shape("signal assignments in a run", 100000, joined("", lambda i: "s%d <= a;\n" % i, "", ""))
    yield shape("variable assignments in a run", 100000, joined("", lambda i: "v%d := a;\n" % i, "", ""))
    yield shape("assignments of one line", 100000, joined("", lambda i: "v%d := a;" % i, " ", "\n"))
    yield shape("elements of a waveform", 100000, joined("s <= ", lambda i: "'1' after %d ns" % i, ", ", ";\n"))
    yield shape("conditions of a waveform", 100000, joined("s <= ", lambda i: "a when b%d = c else\n" % i, "", "d;\n"))
    yield shape("selected waveforms", 100000, joined("with a select s <= ", lambda i: "b when %d" % i, ", ", ";\n"))


# --- Depth ---


def nested(before, opening, inside, closing, behind):
    return lambda n: before + opening * n + inside + closing * n + behind


def depths():
    for name, opening in (("parentheses", "("), ("calls", "f("), ("spaced calls", "f ( ")):
        yield shape("nested %s" % name, 100000, nested("s <= ", opening, "a", ")", ";\n"))
        yield shape("nested %s left open" % name, 100000, nested("s <= ", opening, "a", "", ";\n"))
    flat = "INDENTATION 0\n"
    yield shape("nested if, indentation 0", 100000, nested("", "if a then\n", "b := c;\n", "end if;\n", ""), flat)
    yield shape("nested if left open, indentation 0", 100000, nested("", "if a then\n", "b := c;\n", "", ""), flat)
    yield shape("nested array types, indentation 0", 100000, nested("type t is ", "array (", "a", ")", " of b;\n"), flat)
    yield shape("assignments left open, then names", 100000, lambda n: "a := " * n + "; " + "x " * n)
    yield shape("surplus end", 100000, nested("", "end;\n", "", "", ""))
    yield shape("surplus end if", 100000, nested("", "end if;\n", "", "", ""))


# --- Comments and blanks ---

WORDS = "a comment of several words that goes on and on until it is wider than the line it stands on, by far"
FRAME = "--===========================================================================\n"
COMMENTS = {
    "short comments": "-- a\n",
    "over-long comments": "-- %s\n" % WORDS,
    "framed comments": FRAME + "-- title ==\n",
    "trailing comments": "a <= b; -- c\n",
    "over-long trailing comments": "a <= b; -- %s\n" % WORDS,
}


def fill(text, before="", behind=""):
    return lambda n: before + text * n + behind


def blanks_and_comments():
    for name, text in COMMENTS.items():
        yield shape(name, 500000 if name == "framed comments" else 1000000, fill(text))
    yield shape("one comment with blanks", 5000000, fill(" a", "--", "\n"))
    yield shape("one comment without blanks", 10000000, fill("a", "--", "\n"))
    yield shape("one trailing comment with blanks", 5000000, fill(" a", "a <= b; --", "\n"))
    yield shape("empty lines", 1000000, fill("\n"))
    yield shape("blanks", 10000000, fill(" "))
    yield shape("blanks, tabs written", 10000000, fill(" ", "a", "b;\n"), "TABIFY TRUE\n")
    yield shape("comment with runs of blanks, tabs written", 1000000, fill("         a", "--", "\n"), "TABIFY TRUE\n")
    yield shape("tabs", 2000000, fill("\t", "a", "b;\n"))
    yield shape("one string", 10000000, fill("a", 's <= "', '";\n'))
    yield shape("one identifier", 10000000, fill("a", "s <= ", ";\n"))
    yield shape("one extended identifier", 10000000, fill("a", "s <= \\", "\\;\n"))
    yield shape("no break possible, width 1", 1000000, fill(".a", "s <= a", ";\n"), "LINEWIDTH 1\n")
    yield shape("breaks everywhere, width 1", 1000000, fill(" + a", "s <= a", ";\n"), "LINEWIDTH 1\n")
    yield shape("calls in a line, width 1", 200000, fill("f(a, b) + ", "s <= ", "a;\n"), "LINEWIDTH 1\n")


# --- Hostile: what no one writes, a megabyte of it ---

HOSTILE = (
    ("port (", ""), ("port (a : in b; ", ""), ("port (a, ", ""), ("port map (", ""), ("port map (a => b, ", ""),
    ("generic map (f(a => ", ""), ("function f(", ""), ("function f(a : b; ", ""), ("procedure p(a : b);\n", ""),
    ("type t is (", ""), ("type t is (", "STYLE B"), ("type t is (a, ", "STYLE B"), ("type t is array (", ""),
    ("array (", ""), ("array (", "STYLE B"), ("array (a, ", ""), ("array (a, ", "STYLE B"), ("array (a, b) of ", "STYLE B"),
    ("record ", ""), ("record a : b ", ""), ("record (", ""), ("units ", ""), ("units a = b ", ""),
    ("a <= b\n", ""), ("a <= b\n", "STYLE B"), ("a <= b ", ""), ("a <= b, ", "STYLE B"), ("a(1) <= b\n", ""), ("<= ", ""),
    ("a <= b when ", ""), ("a <= b else ", ""), ("a <= transport ", ""),
    ("a := b\n", ""), ("a := ", ""), ("a := ", "STYLE B"), (":= ", ""), ("f(a) := ", ""), ("f(a :=\n", ""),
    ("a\n:=\n", ""), ("a ; := ", ""),
    ("signal a : b\n", ""), ("signal a : b ", ""), ("signal ", ""), ("signal a is ", ""), ("alias a : b is c\n", ""),
    ("attribute a of ", ""), ("group a is (", ""), ("group a : b (", ""), ("attribute a : b;\n", ""),
    ("use ", ""), ("use ", "STYLE B"), ("use a, ", "STYLE B"), ("library ", "STYLE B"), ("library a, ", "STYLE B"),
    ("use use use;\n", "STYLE B"), ("library a ", "STYLE B"),
    ("x(", ""), ("x(a, ", ""), ("x(x(x(a)))) ", ""), ("(", ""), (")", ""), ("( ( ( ", ""), (") ) ) ", ""), ("a ) ", ""),
    ("(a, b) ", ""), ("f (a) ", ""), ("[ ] ", ""), (", , , ", ""), ("; ; ; ", ""), (": : : ", ""), ("a : a : ", ""),
    ("a : postponed ", ""), ("postponed ", ""), ("postponed assert ", ""), ("=> ", ""), ("a => ", ""), (". ", ""), ("a . ", ""),
    ("--\r", ""), ("--a b\r", ""), ("-- %s\r" % WORDS, ""), ("a --b\r", ""), (" \r", ""), ("a \r", ""), ("\r\n", ""),
    ("--QORN-OFF\r", ""), ("--QORN-OFF\n", ""), ("--QORN-OFF\n--QORN-ON\n", ""), ("--QORN-INDENT-OFF\r", ""),
    ("--QORN-INDENT-OFF\n", ""), ("a --QORN-OFF\r", ""), ("a --QORN-OFF\n", ""), (" --QORN-ON\r", ""),
    ("' ", ""), ("'", ""), ("'\n", ""), ("a' ", ""), ("'(", ""), ("a'left ", ""), ('"', ""), ('"\n', ""), ('"a ', ""), ('" "a', ""),
    ("%", ""), ("%\n", ""), ("\\", ""), ("\\a\n", ""), ("1#", ""), ("1e", ""), ("1_", ""), ("a_", ""), ("x\"", ""), ("!", ""), ("\0", ""),
    ("end ", ""), ("end if ", ""), ("begin ", ""), ("process ", ""), ("block ", ""), ("block (", ""), ("begin end ", ""),
    ("for ", ""), ("for a : b ", ""), ("while ", ""), ("loop ", ""), ("loop end loop;\n", ""), ("if ", ""), ("elsif ", ""), ("else ", ""), ("if a then ", "INDENTATION 0"),
    ("case ", ""), ("case a is when b => ", "INDENTATION 0"), ("when ", ""), ("when a => ", "INDENTATION 0"), ("wait ", ""), ("assert ", ""), ("report ", ""), ("with ", ""), ("with a select ", ""),
    ("component ", ""), ("entity ", ""), ("architecture a of b is ", ""), ("package body ", ""), ("configuration ", ""),
    ("pure function ", ""), ("is ", ""), ("is\n'left constant\n ", "IDENTLENGTH 1000000 INDENTATION 0"), ("<< signal a.b : c >> ", "IDENTLENGTH 1000000 INDENTATION 0"), ("a : block ", ""), ("a : b\n", ""), ("a : process\n", ""),
)  # fmt: skip

# The same of the newest edition of the language.
MODERN = (
    "if a generate begin ", "else generate ", "case a generate when b : c => begin ", "type t is protected ", "v := (a when b else ",
    "{", "<< ", "/* ", "/* a */ ", "a /* b\n c */ ", "`if a\nbegin\n`else\n", "`protect begin_protected\n", "generic (function f(",
    "generic ((a) function f(a : b; ", "function f generic (a) parameter (b : c; ", "package p is generic map (a); ", "x :\n",
    "view a of b is ", "for a : b generic map (c) ", "vunit a { ", "g : if a generate end a; ", "context a is ", "package p is new ",
)  # fmt: skip
MODERN_KEYS = "VHDL 2019\nBLOCKHEADER WRAPPED\nINDENTATION 0\n"

# White space and quotes in front of one thing that makes each rule look far ahead.
RUNS = (
    ("' and blanks", "'", " ", ""), ("' and line ends", "'", "\n", ""), ("a quote that is never closed", '"', "a", ""),
    ("a backslash that is never closed", "\\", "a\n", ""), ("- after -", "", "- ", ""), ("underscores", "a", "_", ""),
    ("line ends in parentheses", "f(", "\n", "a);\n"), ("comments in parentheses", "f(\n", "-- a\n", "a);\n"),
    ("comments behind a name", "a\n", "-- a\n", "<= b;\n"), ("names on one line", "", "a ", ";\n"),
    ("names on separate lines", "", "a\n", ";\n"), ("dotted name", "a", ".a", " <= b;\n"),
    ("label and comments", "a :\n", "-- a\n", "b;\n"), ("empty lines and blanks", "", " \n", "a;\n"),
)  # fmt: skip


def shown(text):
    short = text if len(text) <= 28 else text[:25] + "..."
    return "`%s`" % short.replace("\\", "\\\\").replace("\r", "\\r").replace("\n", "\\n").replace("\0", "\\0")


def hostile():
    for text, config in HOSTILE:
        name = shown(text) + (", " + config.lower() if config else "")
        yield shape(name, max(1, 1000000 // len(text)), fill(text), config and config + "\n", "hostile")
    for text in MODERN:
        yield shape(shown(text) + ", VHDL 2019", max(1, 1000000 // len(text)), fill(text), MODERN_KEYS, "hostile")
    for name, before, text, behind in RUNS:
        yield shape(name, 1000000 // len(text), fill(text, before, behind), group="hostile")


# --- Everything once more, written as it stands or from a column on ---


def wrapped(original, before, behind):
    return lambda n: before + original(n) + behind


def variants(original):
    """The shape between each pair of pragma comments and under -k."""
    for name, before, behind in (
        ("OFF", "--QORN-OFF\n", "--QORN-ON\n"),
        ("INDENT-OFF", "--QORN-INDENT-OFF\n", "--QORN-INDENT-ON\n"),
    ):
        yield replace(
            original, name=original.name + " | " + name, group="variant",
            text=wrapped(original.text, before, "\n" + behind),
        )  # fmt: skip
    yield replace(
        original, name=original.name + " | -k", group="variant", options=("-k",),
        text=wrapped(original.text, "        ", ""),
    )  # fmt: skip


def all_shapes(with_variants=True):
    result = [
        shape("ordinary code, 4 MB", copies_for(4000000), ordinary, group="ordinary"),
        shape("ordinary code, 20 MB", copies_for(20000000), ordinary, group="ordinary"),
    ]
    for family in (tables, expressions, lists, depths, blanks_and_comments, hostile):
        result.extend(family())
    if with_variants:
        result.extend(variant for one in list(result) for variant in variants(one))
    return result
