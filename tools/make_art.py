#!/usr/bin/env python3
"""Draws the pictures of the simulated screen into resources/pictures."""

import argparse
import pathlib

from art.face import face_pictures
from art.firmware_update import firmware_update
from art.performance_monitor import performance_monitor
from art.starting_name import starting_left
from art.starting_singer import starting_right
from art.waterfall import waterfall
from assets.picture import write_png


def all_pictures():
    """Every picture by its file name."""
    return {
        **face_pictures(),
        "starting-left.png": starting_left(),
        "starting-right.png": starting_right(),
        "firmware-update.png": firmware_update(),
        "performance-monitor.png": performance_monitor(),
        "waterfall.png": waterfall(),
    }


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--output", type=pathlib.Path, default=root / "resources" / "pictures")
    options = arguments.parse_args()
    for name, picture in all_pictures().items():
        write_png(options.output / name, picture)


if __name__ == "__main__":
    main()
