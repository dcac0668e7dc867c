#!/usr/bin/env python3
"""Edits an Ardour 7 session file: puts a sound on its track, takes the effect's chunk out or puts
one in, and has the effect's window opened."""
import re
import sys

TICKS = 282240000  # Ardour's units of time in a second


def replace(text, pattern, by, count=1):
    changed, found = re.subn(pattern, lambda match: by(match), text, count=count, flags=re.S)
    if not found:
        sys.exit(f"the session has nothing like {pattern}")
    return changed


def place(text, sound, frames, rate, channels):
    """The whole sound at the session's start, without fades, and the session's range around it."""
    length = frames * TICKS // rate
    sources = "".join(f'<Source name="{sound}" take-id="" type="audio" flags="" '
                      f'id="{9001 + channel}" channel="{channel}" origin=""/>'
                      for channel in range(channels))

    def region(name, number, whole):
        uses = "".join(f' source-{c}="{9001 + c}" master-source-{c}="{9001 + c}"'
                       for c in range(channels))
        return (f'<Region name="{name}" muted="0" opaque="1" locked="0" video-locked="0" '
                f'automatic="0" whole-file="{whole}" import="0" external="0" sync-marked="0" '
                f'left-of-split="0" right-of-split="0" hidden="0" position-locked="0" '
                f'valid-transients="0" start="a0" length="a{length}@a0" '
                f'sync-position="a0" stretch="1" shift="1" layering-index="0" tags="" contents="0" '
                f'default-fade-in="0" default-fade-out="0" fade-in-active="0" fade-out-active="0" '
                f'scale-amplitude="1" id="{number}" type="audio" first-edit="nothing" layer="0"'
                f'{uses} channels="{channels}"/>')

    text = replace(text, r"<Sources/>", lambda _: f"<Sources>{sources}</Sources>")
    text = replace(text, r"<Regions/>", lambda _: f"<Regions>{region('sound', 9003, 1)}</Regions>")
    text = replace(text, r'(<Playlist id="\d+" name="Sound"[^>]*)/>',
                   lambda match: f"{match[1]}>{region('sound.1', 9004, 0)}</Playlist>")
    text = replace(text, r"<Locations/>",
                   lambda _: f'<Locations><Location id="9005" name="session" start="a0" '
                             f'end="a{length}" flags="IsSessionRange" locked="0" timestamp="0" '
                             f'cue="0"/></Locations>')
    text = replace(text, r'session-range-is-free="1"', lambda _: 'session-range-is-free="0"')
    # An output that came with the effect is not wired yet.
    text = re.sub(r'<Port type="audio" name="Sound/audio_out (\d)"/>',
                  r'<Port type="audio" name="Sound/audio_out \1">'
                  r'<Connection other="Master/audio_in \1"/></Port>', text)
    return replace(text, r'id-counter="\d+"', lambda _: 'id-counter="10000"')


def chunk_of(text):
    return re.search(r"<lxvst [^>]*>\s*<chunk[^>]*>([^<]*)<", text, flags=re.S)[1]


def with_chunk(text, chunk):
    """Also sets every parameter that the session names beside the chunk to something else."""
    text = replace(text, r"(<lxvst [^>]*>\s*<chunk[^>]*>)[^<]*", lambda match: match[1] + chunk)
    return replace(text, r'(</lxvst>)(.*?)(</Processor>)',
                   lambda match: (match[1] + re.sub(r' value="[^"]*"', ' value="0.125"', match[2])
                                  + match[3]))


def with_window(text):
    """The effect's window comes up with the session, and the session takes any sound server."""
    route = re.search(r'<Route [^>]*id="(\d+)" name="Sound"', text)[1]
    effect = re.search(r'<Processor id="(\d+)" name="Orv Trelvan"', text)[1]
    text = replace(text, r"<EngineHints[^>]*/>", lambda _: "")
    window = (f'<Window name="P-{route}-{effect}" visible="1" x-off="300" y-off="200" '
              f'custom-ui="1"/>')
    return replace(text, r"</Session>", lambda match: f"<Extra><UI>{window}</UI></Extra>{match[0]}")


def main(words):
    session = words[1]
    with open(session, encoding="utf-8") as file:
        text = file.read()
    if words[0] == "place":
        text = place(text, words[2], int(words[3]), int(words[4]), int(words[5]))
    elif words[0] == "chunk":  # base64
        print(chunk_of(text))
        return
    elif words[0] == "with-chunk":  # base64 on the standard input
        text, session = with_chunk(text, sys.stdin.read().strip()), words[2]
    elif words[0] == "with-window":
        text = with_window(text)
    else:
        sys.exit("usage: ardoursession.py place FILE SOUND FRAMES RATE CHANNELS | chunk FILE | "
                 "with-chunk FILE OUT | with-window FILE")
    with open(session, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main(sys.argv[1:])
