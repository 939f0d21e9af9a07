"""The patterns of the comparison, each with the regular expression that selects the same lines of a lexicon.

Lexicon lines end in CR LF, so the end of a word is "\\r$" and a negated class leaves CR out.
"""

from dataclasses import dataclass
from itertools import permutations

VOWEL = "[aeiou]"
CONSONANT = r"[^aeiou\r]"
FULL_ANAGRAM = r"^(?!.*l.*l)(?!.*i.*i.*i)(?!.*s.*s.*s)(?!.*t.*t)(?!.*e.*e)(?!.*n.*n.*n)(?!.*g.*g)[listeng]{1,10}\r$"
EXACT_ANAGRAM = r"^(?!.*([eilnst]).*\1)[eilnst]{6}\r$"


@dataclass(frozen=True)
class Reads:
    """What a search can't do without: a bit a word for each letter that it asks for, five for each of the last letters,
    the lengths, and text, that of all words or of those it finds; of the words with these initials, or of all."""

    letters: int = 0
    last_letters: int = 0
    lengths: bool = False
    text: str = "found"  # or "all" or "none"
    initials: str = ""

    def megabytes(self, count, words_by_initial, file_bytes):
        total = sum(words_by_initial.values())
        words = sum(words_by_initial[initial] for initial in self.initials) if self.initials else total
        text = {"none": 0, "found": count, "all": words}[self.text] * file_bytes / total
        found_numbers = 4 * count
        bits = self.letters + 5 * self.last_letters
        return (words * (bits / 8 + self.lengths) + text + found_numbers) / 1e6


@dataclass(frozen=True)
class Pattern:
    text: str
    expression: str
    reads: Reads = Reads()
    type: str = "word"
    perl: tuple = ()  # the peers that need -P: rg for back-references, both for look-ahead
    masks_decide: bool = False  # a word's letters (and its length) decide the search
    most_reads: float = 0  # the search may take so many times as long as reading the text

    @property
    def name(self):
        return self.text if self.type == "word" else f"{self.text} ({self.type})"

    def rg_arguments(self):
        return ["-j1", "-c", *(["-P"] if "rg" in self.perl else []), "-e", self.expression]

    def grep_arguments(self, perl=False):
        if perl or "grep" in self.perl:
            return ["-c", "-P", "-e", self.expression]
        # Only -P knows the escape: the other two kinds of expression take the byte itself.
        extended = ["-E"] if any(special in self.expression for special in "|({") else []
        return ["-c", *extended, "-e", self.expression.replace(r"\r", "\r")]


REPEATED = Pattern("1221", r"^(.)(.)\2\1\r$", Reads(lengths=True), perl=("rg",))
PART = Pattern("*ell*", "ell", Reads(text="all"), most_reads=2.5)
UN_ABLE = Pattern("un*able", r"^un.*able\r$", Reads(letters=3, last_letters=3, initials="u"))

PATTERNS = [
    Pattern("c?t", r"^c.t\r$", Reads(lengths=True, initials="c")),
    Pattern("?a?e?", r"^.a.e.\r$", Reads(lengths=True)),
    Pattern("*ing", r"ing\r$", Reads(last_letters=3, text="none"), most_reads=2.5),
    UN_ABLE,
    PART,
    Pattern("s*t*r", r"^s.*t.*r\r$", Reads(letters=1, last_letters=1, text="none", initials="s")),
    REPEATED,
    Pattern(
        "@$@$@", rf"^{VOWEL}{CONSONANT}{VOWEL}{CONSONANT}{VOWEL}\r$", Reads(lengths=True, initials="aeiou")
    ),
    Pattern("*q*", "q", Reads(letters=1, text="none"), masks_decide=True),
    Pattern("*e*", "e", Reads(letters=1, text="none")),
    Pattern("*", "^", Reads(text="none")),
    Pattern("%2ss>", "sss|ss.*ss", Reads(text="all"), most_reads=3.5),
    Pattern(";pnt", "p.*n.*t", Reads(text="all"), most_reads=3.5),
    Pattern(
        ";tnp~", "|".join(".*".join(order) for order in permutations("tnp")), Reads(letters=3, text="none"),
        masks_decide=True,
    ),
    Pattern(
        "listenings", FULL_ANAGRAM, Reads(letters=19), "anagram", perl=("rg", "grep"), masks_decide=True,
    ),
    Pattern(
        "listen", EXACT_ANAGRAM, Reads(lengths=True, text="none"), "exact", perl=("rg", "grep"), masks_decide=True,
    ),
]
# Its time is compared with PART's and not with the peers', its count like every other.
PART_OF_SETS = Pattern("*@$@$@$*", (VOWEL + CONSONANT) * 3)


@dataclass(frozen=True)
class Mixture:
    """A search with conditions; the stages of a pipe of rg that leave the same lines, of which the last counts; and the
    searches that it is made of, each alone."""

    text: str
    options: tuple
    pipe: tuple
    alone: tuple  # (pattern, option...)

    @property
    def name(self):
        return " ".join((self.text, *self.options))


FOUR = Mixture(
    "*", ("--and", "?a*", "--not", "*s", "--with", "e"),
    (("-e", "^.a"), ("-v", "-e", r"s\r$"), ("-c", "-e", "e")),
    (("*",), ("?a*",), ("*s",), (";e",)),
)
MIXTURES = [
    FOUR,
    Mixture(
        "*", ("--length", "7", "--with", "abc", "--without", "d"),
        (("-e", r"^.{7}\r$"), ("-e", "a"), ("-e", "b"), ("-e", "c"), ("-v", "-c", "-e", "d")),
        (("*", "--length", "7"), (";abc~",), ("*", "--without", "d")),
    ),
    Mixture(
        "*ing", ("--and", "*ell*", "--not", "un*"),
        (("-e", r"ing\r$"), ("-e", "ell"), ("-v", "-c", "-e", "^un")),
        (("*ing",), ("*ell*",), ("un*",)),
    ),
    Mixture(
        "*e*", ("--not", "%2ss>", "--and", "*@$@$@$*"),
        (("-e", "e"), ("-v", "-e", "sss|ss.*ss"), ("-c", "-e", (VOWEL + CONSONANT) * 3)),
        (("*e*",), ("%2ss>",), ("*@$@$@$*",)),
    ),
    Mixture(
        "*c*", ("--from", "aeinrtc", "--not", "*t"),
        (("-e", "c"), ("-P", "-e", r"^(?!.*(.).*\1)[aeinrtc]+\r$"), ("-v", "-c", "-e", r"t\r$")),
        (("*c*",), ("*", "--from", "aeinrtc"), ("*t",)),
    ),
]
