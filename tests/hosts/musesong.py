#!/usr/bin/env python3
"""MusE's song files: makes one with an input, and the effect on its output, its window open, as
VST 2 or by its URI as LV2; takes the effect's chunk out of one."""
import re
import sys

from packedstate import unpacked, write_chunk

SONG = """<?xml version="1.0"?>
<muse version="3.3">
  <song>
    <sampleRate>48000</sampleRate>
    <AudioInput>
      <name>In 1</name>
      <channels>2</channels>
    </AudioInput>
    <AudioOutput>
      <name>Out 1</name>
      <channels>2</channels>
      <plugin {which} label="Orv Trelvan" channel="2">
        <nativegui>1</nativegui>
      </plugin>
    </AudioOutput>
    <Route>
      <source name="In 1"/>
      <dest name="Out 1"/>
    </Route>
  </song>
</muse>
"""
# How a chunk begins: its tag and the effect's number, twice. MusE keeps an LV2 state's properties
# together; the chunk is one of them, of so many bytes.
BEGINNING = b"\0\0\0\2nvlTnvlT"
CHUNK_SIZE = 10545


def chunk_of(text):
    data = re.search(r"<customData>(.*?)</customData>", text, flags=re.S)
    if not data:
        sys.exit("the song holds no chunk")
    chunk = unpacked(data[1])
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
        write_chunk(words[1], words[2], chunk_of)
    else:
        sys.exit("usage: musesong.py make SONG [URI] | chunk SONG OUT")


if __name__ == "__main__":
    main(sys.argv[1:])
