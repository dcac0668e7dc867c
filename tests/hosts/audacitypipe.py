#!/usr/bin/env python3
"""Sends commands through Audacity's scripting pipe, each when the one before it is done.

audacitypipe.py --free | COMMAND...: --free succeeds where no Audacity of this user listens, and
removes pipes that one left behind.
"""
import errno
import os
import stat
import sys
import time

TO = f"/tmp/audacity_script_pipe.to.{os.getuid()}"  # Audacity's own choice
FROM = f"/tmp/audacity_script_pipe.from.{os.getuid()}"


def is_free():
    try:
        os.close(os.open(TO, os.O_WRONLY | os.O_NONBLOCK))
        return False
    except OSError as error:
        return error.errno in (errno.ENOENT, errno.ENXIO)


def remove_left_overs():
    """Of an Audacity that was killed."""
    for path in (TO, FROM):
        if os.path.exists(path):
            os.remove(path)


def wait_for_pipes():
    for _ in range(120):
        pipes = (TO, FROM)
        if all(os.path.exists(path) and stat.S_ISFIFO(os.stat(path).st_mode) for path in pipes):
            return
        time.sleep(0.25)
    sys.exit("Audacity opened no scripting pipe")


def main(commands):
    if commands == ["--free"]:
        if not is_free():
            sys.exit("another Audacity of this user is running")
        remove_left_overs()
        return
    wait_for_pipes()
    # In this order, without creating a file: each opening waits for Audacity's.
    with (open(os.open(TO, os.O_WRONLY), "w", encoding="utf-8") as to,
          open(FROM, encoding="utf-8") as answers):
        for command in commands:
            to.write(command + "\n")
            to.flush()
            answer = ""
            while not answer.endswith("\n\n") or not answer.strip():
                line = answers.readline()
                if not line:
                    sys.exit(f"{command}: Audacity is gone")
                answer += line
            print(f"{command}: {answer.strip()}")
            if "BatchCommand finished: OK" not in answer:
                sys.exit(1)


if __name__ == "__main__":
    main(sys.argv[1:])
