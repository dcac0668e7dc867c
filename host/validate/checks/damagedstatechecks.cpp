// Checks of states that are cut, changed, foreign or none at all: sessions get damaged.
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/damagedstate.h"
#include "host/validate/means/patience.h"

namespace {

constexpr double kLongEnough = 15.0;  // seconds, of the 40 that a check may take
constexpr int kSeconds = 40;
constexpr std::size_t kMegabyte = 1 << 20;

using Bytes = std::vector<unsigned char>;

Bytes randomBytes(Trial& trial, std::size_t count) {
  Bytes bytes(count);
  for (auto& byte : bytes) byte = static_cast<unsigned char>(trial.random()() & 0xFF);
  return bytes;
}

// Every place below `count`, or as many as there is time for: those at the start and at the end,
// where headers and ends of texts are, and others by chance.
std::vector<std::size_t> places(Trial& trial, std::size_t count) {
  const auto most = static_cast<std::size_t>(trial.rounds(300));
  std::vector<std::size_t> chosen;
  if (count <= most) {
    for (std::size_t place = 0; place < count; ++place) chosen.push_back(place);
    return chosen;
  }
  const std::size_t edge = most / 4;
  for (std::size_t place = 0; place < edge; ++place) {
    chosen.push_back(place);
    chosen.push_back(count - 1 - place);
  }
  while (chosen.size() < most) chosen.push_back(trial.random()() % count);
  return chosen;
}

// Some effects take a size of 0 for one that the host does not tell, and read a header.
void noBytes(Trial& trial) {
  DamagedState state(trial);
  Bytes zeros(kMegabyte);
  for (const bool programOnly : {false, true}) {
    state.giveAt(zeros.data(), 0, programOnly, "a state of 0 bytes");
    state.giveAt(nullptr, 0, programOnly, "a state of 0 bytes at a null pointer");
  }
  state.checkThatItStillLoads();
}

void nullPointer(Trial& trial) {
  DamagedState state(trial);
  for (const bool programOnly : {false, true}) {
    const auto size = static_cast<VstIntPtr>(state.whole(programOnly).size());
    state.giveAt(nullptr, size, programOnly,
                 formatted("a state of %td bytes at a null pointer", size));
  }
  state.checkThatItStillLoads();
}

void cutShort(Trial& trial) {
  DamagedState state(trial);
  const Patience patience(kLongEnough);
  for (const bool programOnly : {false, true}) {
    const Bytes& whole = state.whole(programOnly);
    for (const std::size_t length : places(trial, whole.size())) {
      if (length == 0) continue;  // another check's
      if (patience.over()) break;
      state.give(std::span(whole).first(length), programOnly,
                 formatted("a state of %zu bytes, cut after %zu", whole.size(), length));
    }
  }
  state.checkThatItStillLoads();
}

void tooLong(Trial& trial) {
  DamagedState state(trial);
  for (const std::size_t more : {std::size_t{1}, std::size_t{3}, std::size_t{4}, std::size_t{16},
                                 std::size_t{1000}, kMegabyte}) {
    for (const bool programOnly : {false, true}) {
      Bytes bytes = state.whole(programOnly);
      const std::size_t size = bytes.size();
      const Bytes extra = randomBytes(trial, more);
      bytes.insert(bytes.end(), extra.begin(), extra.end());
      state.give(bytes, programOnly, formatted("a state of %zu bytes with %zu more", size, more));
    }
  }
  state.checkThatItStillLoads();
}

void randomState(Trial& trial) {
  DamagedState state(trial);
  const Patience patience(kLongEnough);
  for (int round = 0; round < trial.rounds(20) && !patience.over(); ++round) {
    const bool programOnly = round % 2 == 1;
    const std::size_t size =
        round % 4 < 2 ? kMegabyte : static_cast<std::size_t>(trial.randomInt(1, 300));
    Bytes bytes = randomBytes(trial, size);
    // A header that is right leads further into what follows.
    const std::size_t header =
        std::min({static_cast<std::size_t>(round / 4) * 4, size, state.whole(programOnly).size()});
    std::copy_n(state.whole(programOnly).begin(), header, bytes.begin());
    state.give(bytes, programOnly,
               formatted("%zu random bytes, the first %zu right (round %d)", size, header, round));
  }
  state.checkThatItStillLoads();
}

void foreignState(Trial& trial) {
  struct Opening {
    const char* kind;
    std::string_view bytes;
  };
  static constexpr Opening kOpenings[] = {
      {"a text of zeros", {"\0\0\0\0\0\0\0\0", 8}},
      {"bytes of 255", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"},
      {"XML", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><state><parameter id=\"gain\" value=\""},
      {"JSON", "{\"version\": 99999999999999999999, \"parameters\": [[[[[[[["},
      {"a text of lines", "gain=1e999\nfeed=nan\npan=-inf\n=\n"},
      {"a compressed file", {"\x1F\x8B\x08\0\0\0\0\0\0\x03\x78\x9C", 12}},
      {"a sound file", {"RIFF\xFF\xFF\xFF\xFFWAVEfmt \x10\0\0\0", 20}},
      {"a file of programs",
       {"CcnK\x7F\xFF\xFF\xFF"
        "FBCh\0\0\0\x02"
        "Othr\0\0\0\x01\0\0\0\x80",
        28}},
      {"lengths of four thousand millions", {"\xFF\xFF\xFF\xFE\xFF\xFF\xFF\xFE\0\0\0\x01", 12}},
  };
  DamagedState state(trial);
  for (const Opening& opening : kOpenings) {
    for (const bool programOnly : {false, true}) {
      // as it stands, and going on in its own style
      for (const std::size_t size : {opening.bytes.size(), std::size_t{4096}}) {
        Bytes bytes;
        while (bytes.size() < size)
          bytes.insert(bytes.end(), opening.bytes.begin(), opening.bytes.end());
        bytes.resize(size);
        state.give(bytes, programOnly,
                   formatted("another effect's state: %s, %zu bytes", opening.kind, size));
      }
    }
  }
  // Its own of the other kind.
  for (const bool programOnly : {false, true}) {
    state.give(state.whole(!programOnly), programOnly,
               programOnly ? "a bank as a program" : "a program as a bank");
  }
  state.checkThatItStillLoads();
}

void flippedBytes(Trial& trial) {
  DamagedState state(trial);
  const Patience patience(kLongEnough);
  for (const bool programOnly : {false, true}) {
    Bytes bytes = state.whole(programOnly);
    for (const std::size_t place : places(trial, bytes.size())) {
      for (const int bits : {0xFF, trial.randomInt(1, 0xFE)}) {
        if (patience.over()) break;
        const unsigned char right = bytes[place];
        bytes[place] ^= static_cast<unsigned char>(bits);
        state.give(bytes, programOnly,
                   formatted("a state of %zu bytes whose byte %zu is 0x%02X, not 0x%02X",
                             bytes.size(), place, bytes[place], right));
        bytes[place] = right;
      }
    }
  }
  state.checkThatItStillLoads();
}

// As a processor of the other byte order would have written it.
void turnedWords(Trial& trial) {
  DamagedState state(trial);
  for (const bool programOnly : {false, true}) {
    for (const std::size_t word : {std::size_t{2}, std::size_t{4}, std::size_t{8}}) {
      const Bytes& whole = state.whole(programOnly);
      // all of it, and only so many words of the header
      for (const std::size_t words :
           {whole.size() / word, std::size_t{1}, std::size_t{2}, std::size_t{4}, std::size_t{8}}) {
        Bytes bytes = whole;
        for (std::size_t i = 0; i < words && (i + 1) * word <= bytes.size(); ++i) {
          const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(i * word);
          std::reverse(begin, begin + static_cast<std::ptrdiff_t>(word));
        }
        state.give(bytes, programOnly,
                   formatted("a state of %zu bytes with %zu words of %zu bytes turned round",
                             bytes.size(), words, word));
      }
    }
  }
  state.checkThatItStillLoads();
}

constexpr std::array kChecks{
    Check{"a state of no bytes does no harm", 9, kSeconds, noBytes},
    Check{"a state that is cut short does no harm", 9, kSeconds, cutShort},
    Check{"a state with more bytes after it does no harm", 9, kSeconds, tooLong},
    Check{"a state of random bytes does no harm", 9, kSeconds, randomState},
    Check{"the state of another effect does no harm", 9, kSeconds, foreignState},
    Check{"a state with a wrong byte does no harm", 9, kSeconds, flippedBytes},
    Check{"a state in the other byte order does no harm", 9, kSeconds, turnedWords},
    Check{"a state at a null pointer does no harm", 10, kSeconds, nullPointer},
};

}  // namespace

std::span<const Check> damagedStateChecks() {
  return kChecks;
}
