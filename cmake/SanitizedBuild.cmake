# How sanitized builds are compiled in less time: they are made for tests alone, and `./test` makes
# two of them. Any other build compiles each source by itself, which shows what it does not include.
target_precompile_headers(trelvan PRIVATE ${toolkit_source}/vstgui/vstgui.h)
if(TARGET widen_host)
  target_precompile_headers(widen_host PRIVATE <algorithm> <array> <chrono> <filesystem>
    <functional> <memory> <optional> <string> <string_view> <thread> <vector>)
endif()
# The toolkit's sources, which are not ours to look after, in four pieces.
set_target_properties(vstgui PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 22)
