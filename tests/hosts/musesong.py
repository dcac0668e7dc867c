#!/usr/bin/env python3
"""MusE's song files: makes one with the effect on its output, its window open, as VST 2 or by its
URI as LV2; takes the effect's chunk out of one."""
import base64
import re
import sys
import zlib

SONG = """<?xml version="1.0"?>
<muse version="3.3">
  <song>
    <sampleRate>48000</sampleRate>
    <AudioOutput>
      <name>Out 1</name>
      <channels>2</channels>
      <plugin {which} label="Orv Trelvan" channel="2">
        <nativegui>1</nativegui>
      </plugin>
    </AudioOutput>
  </song>
</muse>
"""
# How a chunk begins: its tag and the effect's number, twice. MusE keeps an LV2 state's properties
# together; the chunk is one of them, of so many bytes.
BEGINNING = b"\0\0\0\2nvlTnvlT"
CHUNK_SIZE = 10545
SIZE = 4  # bytes in front of the packed chunk: its length unpacked, big end first


def chunk_of(text):
    data = re.search(r"<customData>(.*?)</customData>", text, flags=re.S)
    if not data:
        sys.exit("the song holds no chunk")
    packed = base64.b64decode("".join(data[1].split()))
    chunk = zlib.decompress(packed[SIZE:])
    if len(chunk) != int.from_bytes(packed[:SIZE], "big"):
        sys.exit("the chunk has another length than the song says")
    if "<plugin uri=" in text:
        at = chunk.index(BEGINNING)
        return chunk[at:at + CHUNK_SIZE]
    return chunk


def main(words):
    if len(words) in (2, 3) and words[0] == "make":
        which = f'uri="{words[2]}"' if len(words) == 3 else 'file="Trelvan"'
        with open(words[1], "w", encoding="utf-8") as file:
            file.write(SONG.format(which=which))
    elif len(words) == 3 and words[0] == "chunk":
        with open(words[1], encoding="utf-8") as file:
            chunk = chunk_of(file.read())
        with open(words[2], "wb") as file:
            file.write(chunk)
    else:
        sys.exit("usage: musesong.py make SONG [URI] | chunk SONG OUT")


if __name__ == "__main__":
    main(sys.argv[1:])
