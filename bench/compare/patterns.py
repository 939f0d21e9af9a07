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
class Pattern:
    text: str
    expression: str
    type: str = "word"
    perl: tuple = ()  # the peers that need -P: rg for back-references, both for look-ahead
    masks_decide: bool = False  # a word's letters (and its length) decide the search

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


REPEATED = Pattern("1221", r"^(.)(.)\2\1\r$", perl=("rg",))
PART = Pattern("*ell*", "ell")
UN_ABLE = Pattern("un*able", r"^un.*able\r$")

PATTERNS = [
    Pattern("c?t", r"^c.t\r$"),
    Pattern("?a?e?", r"^.a.e.\r$"),
    Pattern("*ing", r"ing\r$"),
    UN_ABLE,
    PART,
    Pattern("s*t*r", r"^s.*t.*r\r$"),
    REPEATED,
    Pattern("@$@$@", rf"^{VOWEL}{CONSONANT}{VOWEL}{CONSONANT}{VOWEL}\r$"),
    Pattern("*q*", "q", masks_decide=True),
    Pattern("*e*", "e"),
    Pattern("*", "^"),
    Pattern("%2ss>", "sss|ss.*ss"),
    Pattern(";pnt", "p.*n.*t"),
    Pattern(";tnp~", "|".join(".*".join(order) for order in permutations("tnp")), masks_decide=True),
    Pattern("listenings", FULL_ANAGRAM, "anagram", perl=("rg", "grep"), masks_decide=True),
    Pattern("listen", EXACT_ANAGRAM, "exact", perl=("rg", "grep"), masks_decide=True),
]
# Its time is compared with PART's and not with the peers', its count like every other.
PART_OF_SETS = Pattern("*@$@$@$*", (VOWEL + CONSONANT) * 3)
