"""Reading of a Markdown page: its headings with their anchors, its fenced blocks, its tables and its links."""
import re
from pathlib import Path
from typing import NamedTuple


class Block(NamedTuple):
    language: str
    line: int  # of its first line, from 1
    text: str
    program: str  # the name in a comment "program: NAME" right before the block, or empty


class Page:
    def __init__(self, path):
        self.path = Path(path)
        self.lines = self.path.read_text(encoding="utf-8").splitlines()
        self.blocks = []
        self.prose = []  # (number, line) of all lines outside fenced blocks
        self._split()
        self.headings = [(n, len(m[1]), m[2]) for n, line in self.prose if (m := re.match(r"(#+) +(.*\S)", line))]

    def _split(self):
        fence, start, marker = None, 0, ""
        for number, line in enumerate(self.lines, 1):
            if fence is None and line.startswith("```"):
                fence, start = line[3:].strip(), number + 1
            elif fence is not None and line.startswith("```"):
                text = "\n".join(self.lines[start - 1:number - 1]) + "\n"
                self.blocks.append(Block(fence, start, text, marker))
                fence, marker = None, ""
            elif fence is None:
                self.prose.append((number, line))
                found = re.match(r"<!-- program: (\w+) -->", line)
                marker = found[1] if found else marker

    def anchors(self):
        """The anchors that the headings get, as GitHub makes them."""
        seen, result = {}, set()
        for _, _, title in self.headings:
            anchor = slug(title)
            count = seen.get(anchor, 0)
            seen[anchor] = count + 1
            result.add(f"{anchor}-{count}" if count else anchor)
        return result

    def links(self):
        """(line, text, target, is picture) of all links outside code."""
        for number, line in self.prose:
            if line.startswith("    "):
                continue
            for mark, text, target in re.findall(r"(!?)\[([^\]]*)\]\(([^)\s]+)\)", re.sub(r"`[^`]*`", "", line)):
                yield number, text, target, bool(mark)

    def section(self, title):
        """The lines under a heading, up to the next one of its level or above; none without that heading."""
        for i, (number, level, name) in enumerate(self.headings):
            if name == title:
                end = next((n for n, l, _ in self.headings[i + 1:] if l <= level), len(self.lines) + 1)
                return self.lines[number:end - 1]
        return []


def slug(title):
    title = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", title).replace("`", "")
    return re.sub(r"[^\w\- ]", "", title.strip().lower()).replace(" ", "-")


def rows(lines):
    """The cells of the tables among the lines, without the heads."""
    result = []
    for above, line in zip([""] + lines, lines):
        if line.startswith("|") and not re.match(r"\|[-| ]+\|$", line):
            cells = [cell.strip().replace(r"\|", "|") for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
            result.append(cells)
        elif line.startswith("|"):
            result.pop()  # that was the head
    return result
