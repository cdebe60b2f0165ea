"""check_examples.py FOLDER INCLUDE CC CXX PAGE...: each example compiles on its own, as a reader would take it.

FOLDER is what extract_examples.py has made of a page whose examples share a prelude; those of the other pages have none.
"""
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from page import Page

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def main(folder, include, cc, cxx, *pages):
    folder = Path(folder)
    languages = {".c": [cc, "-std=c99"], ".cpp": [cxx, "-std=c++20"]}

    def compile_headers():
        # The preludes are compiled once: most of the time goes into the system's header.
        for header, suffix, kind in (("prelude.h", ".c", "c-header"), ("prelude.hpp", ".cpp", "c++-header")):
            subprocess.run([*languages[suffix], *WARNINGS, f"-I{include}", "-x", kind, folder / header, "-o",
                            folder / (header + ".gch")], check=True)

    def compile_one(source):
        command = [*languages[source.suffix], *WARNINGS, f"-I{folder}", f"-I{include}", "-fsyntax-only", source]
        return subprocess.run(command, capture_output=True, text=True)

    compile_headers()
    sources = sorted((folder / "alone").iterdir())
    for page in map(Page, pages):
        blocks = [block for block in page.blocks if block.language == "c"]
        for block in blocks:
            sources.append(folder / f"{page.path.name}-{block.line}.c")
            sources[-1].write_text(block.text, encoding="utf-8")
        if not blocks:
            print(f"{page.path} has no example")
            return 1
    with ThreadPoolExecutor(2) as pool:
        failed = [result for result in pool.map(compile_one, sources) if result.returncode != 0]
    for result in failed:
        print(result.stderr)
    print(f"{len(sources) - len(failed)} of {len(sources)} examples compile on their own")
    return 1 if failed or len(sources) < 35 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
