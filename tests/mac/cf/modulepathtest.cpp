// The paths of the image that holds the code: this program's, and a bundle's that is loaded twice
// under two names.
#include "platform/modulepath.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

TEST(ModulePathMac, KnowsThisProgramsFolder) {
  EXPECT_EQ(moduleFolder(), fs::read_symlink("/proc/self/exe").parent_path().string() + "/");
}

// What the bundle's module found out about itself, see bundleprobe.cpp.
struct Probe {
  std::string bundle, folder, resources;
  long leaked;
};

Probe probe(const fs::path& module) {
  void* loaded = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (loaded == nullptr) throw std::runtime_error(dlerror());
  auto* ask = reinterpret_cast<long (*)(char*, char*, char*)>(dlsym(loaded, "probe"));
  char bundle[512], folder[512], resources[512];
  const long leaked = ask(bundle, folder, resources);
  return {bundle, folder, resources, leaked};
}

TEST(ModulePathMac, EachBundleFindsItself) {
  for (const char* name : {"One", "Two u"}) {
    const fs::path bundle = fs::path(MAC_BUNDLES) / (std::string(name) + ".vst");
    fs::create_directories(bundle / "Contents/Resources");
    const Probe found = probe(bundle / "Contents/MacOS" / name);
    EXPECT_EQ(found.bundle, bundle.string());
    EXPECT_EQ(found.folder, (bundle / "Contents/MacOS/").string());
    EXPECT_EQ(found.resources, (bundle / "Contents/Resources/").string());
    EXPECT_EQ(found.leaked, 0);
  }
}

// A folder of plug-ins may hold links to bundles that lie elsewhere, with their resources.
TEST(ModulePathMac, ABundleBehindALinkIsFoundWhereItLies) {
  const TemporaryFolder folder;
  const fs::path bundle = fs::path(folder.path) / "Real.vst";
  fs::create_directories(bundle / "Contents/MacOS");
  fs::copy_file(fs::path(MAC_BUNDLES) / "One.vst/Contents/MacOS/One",
                bundle / "Contents/MacOS/Real");
  fs::create_directory_symlink(bundle, fs::path(folder.path) / "Linked.vst");
  const Probe found = probe(fs::path(folder.path) / "Linked.vst/Contents/MacOS/Real");
  EXPECT_EQ(found.folder, (bundle / "Contents/MacOS/").string());
}

}  // namespace
