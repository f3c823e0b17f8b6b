"""The committed FONTX2 files are what the tool makes from the M+ bitmap fonts."""

import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
TOOLS = ROOT / "tools"
sys.path.insert(0, str(TOOLS))

from make_fonts import FULL_WIDTH_SOURCE, HALF_WIDTH_SOURCE, SOURCE_FOLDER


def main():
    if not all((pathlib.Path(SOURCE_FOLDER) / name).is_file() for name in (FULL_WIDTH_SOURCE, HALF_WIDTH_SOURCE)):
        print("left out: the package xfonts-mplus is not installed")
        return
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sys.executable, "-B", TOOLS / "make_fonts.py", folder], check=True)
        for name in ("MPLZN10X.FNT", "MPLHN10x.FNT"):
            made = (pathlib.Path(folder) / name).read_bytes()
            if made != (ROOT / "resources" / "fonts" / name).read_bytes():
                sys.exit(f"resources/fonts/{name} is not what tools/make_fonts.py makes")


if __name__ == "__main__":
    main()
