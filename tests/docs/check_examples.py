"""check_examples.py FOLDER INCLUDE CC CXX: each example of the page compiles on its own, as a reader would take it."""
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def main(folder, include, cc, cxx):
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
    with ThreadPoolExecutor(2) as pool:
        failed = [result for result in pool.map(compile_one, sources) if result.returncode != 0]
    for result in failed:
        print(result.stderr)
    print(f"{len(sources) - len(failed)} of {len(sources)} examples compile on their own")
    return 1 if failed or len(sources) < 35 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
