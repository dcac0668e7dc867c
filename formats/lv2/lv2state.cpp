// The effect's state: the chunk of its VST 2.4 record, byte for byte.
#include "formats/lv2/lv2effect.h"

namespace {

// While it lives, `place` names the calling thread; however it ends.
class ThreadMark {
 public:
  explicit ThreadMark(std::atomic<std::thread::id>& place) : marked(place) {
    marked = std::this_thread::get_id();
  }
  ~ThreadMark() { marked = std::thread::id(); }
  ThreadMark(const ThreadMark&) = delete;
  ThreadMark& operator=(const ThreadMark&) = delete;

 private:
  std::atomic<std::thread::id>& marked;
};

}  // namespace

LV2_State_Status Lv2Effect::save(LV2_State_Store_Function store, LV2_State_Handle state) const {
  if (chunkKey == 0) return LV2_STATE_ERR_NO_FEATURE;
  const auto chunk = effect->chunk();
  if (chunk.empty()) return LV2_STATE_ERR_UNKNOWN;
  // Portable: it is read in either byte order.
  return store(state, chunkKey, chunk.data(), chunk.size(), chunkType,
               LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE);
}

// Also after activate, as some hosts do: the effect starts with what it was given and does not
// glide there. The ports' values, which the host restores by itself, come with the next run.
LV2_State_Status Lv2Effect::restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle state) {
  if (chunkKey == 0) return LV2_STATE_ERR_NO_FEATURE;
  std::size_t size = 0;
  std::uint32_t type = 0;
  std::uint32_t flags = 0;
  const void* const bytes = retrieve(state, chunkKey, &size, &type, &flags);
  if (bytes == nullptr) return LV2_STATE_ERR_NO_PROPERTY;
  if (type != chunkType) return LV2_STATE_ERR_BAD_TYPE;
  {
    const ThreadMark mark(restoring);
    if (!effect->takeChunk({static_cast<const unsigned char*>(bytes), size}))
      return LV2_STATE_ERR_UNKNOWN;
  }
  effect->startAgain();
  for (Control& control : controls) control.seen = kNever;
  portsAreNew = true;
  outdated = false;
  return LV2_STATE_SUCCESS;
}
