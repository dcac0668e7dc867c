// Tests of the module's own folder: of the test program, and of modules in bundles.
#include "platform/modulepath.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

struct Place {
  std::string folder;
  std::string resources;
};

// Loads a copy of the probe by that name; the copy stays loaded, as hosts' plug-ins do. It is asked
// in `later`, where the process goes once it is loaded.
Place placeOf(const std::string& name, const fs::path& later = fs::current_path()) {
  void* module = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(module, nullptr) << dlerror();
  if (module == nullptr) return {};
  auto* whereAmI = reinterpret_cast<void (*)(char*, char*)>(dlsym(module, "whereAmI"));
  fs::current_path(later);
  char folder[4096], resources[4096];
  whereAmI(folder, resources);
  return {folder, resources};
}

class Module : public testing::Test {
 protected:
  Module() {
    fs::create_directories(folder / "X.vst/Contents/x86_64-linux");
    fs::copy_file(TRELVAN_PROBE, file);
  }

  TemporaryFolder folder;
  std::string file = folder / "X.vst/Contents/x86_64-linux/X.so";
};

TEST_F(Module, KnowsItsFolderAndItsResources) {
  fs::create_directory(folder / "X.vst/Contents/Resources");
  const Place place = placeOf(file);
  EXPECT_EQ(place.folder, folder / "X.vst/Contents/x86_64-linux/");
  EXPECT_EQ(place.resources, folder / "X.vst/Contents/Resources/");
}

TEST_F(Module, HasNoResourcesWhereThereIsNoSuchFolder) {
  EXPECT_EQ(placeOf(file).resources, "");
  const TemporaryFolder other;
  fs::create_directory(other / "bin");
  fs::copy_file(TRELVAN_PROBE, other / "bin/Y.so");
  writeFile(other / "Resources", "a file");
  EXPECT_EQ(placeOf(other / "bin/Y.so").resources, "");
}

TEST_F(Module, FindsItsBundleThroughALink) {
  fs::create_directory(folder / "X.vst/Contents/Resources");
  fs::create_directory(folder / "plugins");
  fs::create_symlink(file, folder / "plugins/Linked.so");
  EXPECT_EQ(placeOf(folder / "plugins/Linked.so").resources, folder / "X.vst/Contents/Resources/");
}

TEST_F(Module, FindsItsBundleThroughARelativeName) {
  fs::create_directory(folder / "X.vst/Contents/Resources");
  const fs::path before = fs::current_path();
  fs::current_path(folder / "X.vst");
  EXPECT_EQ(placeOf("./Contents/../Contents/x86_64-linux/X.so").resources,
            folder / "X.vst/Contents/Resources/");
  fs::current_path(before);
}

TEST_F(Module, FindsItsBundleThroughARelativeNameInAProcessThatHasGoneElsewhere) {
  fs::create_directory(folder / "X.vst/Contents/Resources");
  const fs::path before = fs::current_path();
  fs::current_path(folder / "X.vst");
  EXPECT_EQ(placeOf("./Contents/x86_64-linux/X.so", before).resources,
            folder / "X.vst/Contents/Resources/");
}

TEST_F(Module, FindsABundleWithOddCharactersInItsName) {
  fs::rename(folder / "X.vst", folder / "X y\xc3\xa9 %20.vst");
  fs::create_directory(folder / "X y\xc3\xa9 %20.vst/Contents/Resources");
  EXPECT_EQ(placeOf(folder / "X y\xc3\xa9 %20.vst/Contents/x86_64-linux/X.so").resources,
            folder / "X y\xc3\xa9 %20.vst/Contents/Resources/");
}

TEST_F(Module, IsTheProgramItselfWhereItIsLinkedIntoOne) {
  const std::string program = fs::canonical("/proc/self/exe").parent_path().string() + "/";
  EXPECT_EQ(moduleFolder(), program);
}

}  // namespace
