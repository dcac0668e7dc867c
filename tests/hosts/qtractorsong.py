#!/usr/bin/env python3
"""Qtractor's session files: makes one with a sound and the effect on a track, as VST 2 by its file
or by its URI as LV2; takes the effect's chunk out of one."""
import re
import sys

from lv2state import chunk_in
from packedstate import unpacked, write_chunk

SONG = """<!DOCTYPE qtractor-session>
<session name="song" version="0.9.31">
 <properties>
  <sample-rate>{rate}</sample-rate>
 </properties>
 <devices>
  <audio-engine>
   <audio-bus name="Master" mode="duplex">
    <channels>2</channels>
    <auto-connect>1</auto-connect>
   </audio-bus>
  </audio-engine>
 </devices>
 <tracks>
  <track name="Track" type="audio">
   <properties>
    <input-bus>Master</input-bus>
    <output-bus>Master</output-bus>
   </properties>
   <view>
    <height>96</height>
   </view>
   <clips>
    <clip name="sound">
     <properties>
      <start>0</start>
      <offset>0</offset>
      <length>{frames}</length>
     </properties>
     <audio-clip>
      <filename>{sound}</filename>
     </audio-clip>
    </clip>
   </clips>
   <plugins>
    <plugin type="{kind}">
     <filename>{plugin}</filename>
     <index>0</index>
     <label>Orv_Trelvan</label>
     <activated>1</activated>
    </plugin>
   </plugins>
  </track>
 </tracks>
</session>
"""


def chunk_of(text):
    # Qt writes attributes in an order of its own, now in one and now in another.
    config = re.search(r"<config [^>]*>(.*?)</config>", text, flags=re.S)
    if not config:
        sys.exit("the session holds no chunk")
    state = unpacked(config[1])
    return chunk_in(state.decode()) if '<plugin type="LV2">' in text else state


def main(words):
    if len(words) == 6 and words[0] == "make":
        _, song, sound, rate, frames, plugin = words
        kind = "LV2" if plugin.startswith("urn:") else "VST2"
        with open(song, "w", encoding="utf-8") as file:
            file.write(SONG.format(sound=sound, rate=rate, frames=frames, plugin=plugin, kind=kind))
    elif len(words) == 3 and words[0] == "chunk":
        write_chunk(words[1], words[2], chunk_of)
    else:
        sys.exit("usage: qtractorsong.py make SONG SOUND RATE FRAMES FILE|URI | chunk SONG OUT")


if __name__ == "__main__":
    main(sys.argv[1:])
