"""What hosts of Qt's kind keep of a plug-in's state in their songs."""
import base64
import sys
import zlib

SIZE = 4  # bytes in front of what is packed: its length unpacked, big end first


def unpacked(text):
    """text: base64 of a length and what zlib made of the state."""
    packed = base64.b64decode("".join(text.split()))
    state = zlib.decompress(packed[SIZE:])
    if len(state) != int.from_bytes(packed[:SIZE], "big"):
        sys.exit("the state has another length than the song says")
    return state


def write_chunk(song, out, chunk_of):
    """out: the file for what chunk_of finds in the song's text."""
    with open(song, encoding="utf-8") as file:
        chunk = chunk_of(file.read())
    with open(out, "wb") as file:
        file.write(chunk)
