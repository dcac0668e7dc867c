// A built module's dynamic symbols, read from the file itself. The build says which module, what it
// exports, and what its test is called.
#include <elf.h>
#include <gmock/gmock.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Symbols {
  std::vector<std::string> defined;  // global or weak, seen by others
};

template <typename Record>
Record at(const std::vector<char>& file, std::size_t offset) {
  Record record{};
  if (offset + sizeof record <= file.size())
    std::memcpy(&record, file.data() + offset, sizeof record);
  return record;
}

Symbols dynamicSymbols(const char* path) {
  std::ifstream in(path, std::ios::binary);
  const std::vector<char> file{std::istreambuf_iterator<char>(in), {}};
  const auto header = at<Elf64_Ehdr>(file, 0);
  EXPECT_EQ(std::memcmp(header.e_ident, ELFMAG, SELFMAG), 0) << path;
  const auto section = [&](std::size_t index) {
    return at<Elf64_Shdr>(file, header.e_shoff + index * sizeof(Elf64_Shdr));
  };
  Symbols symbols;
  for (std::size_t i = 0; i < header.e_shnum; ++i) {
    const Elf64_Shdr table = section(i);
    if (table.sh_type != SHT_DYNSYM) continue;
    const Elf64_Shdr names = section(table.sh_link);
    for (std::size_t n = 1; n < table.sh_size / sizeof(Elf64_Sym); ++n) {
      const auto symbol = at<Elf64_Sym>(file, table.sh_offset + n * sizeof(Elf64_Sym));
      const bool seen = ELF64_ST_BIND(symbol.st_info) != STB_LOCAL &&
                        ELF64_ST_VISIBILITY(symbol.st_other) != STV_HIDDEN;
      if (seen && symbol.st_shndx != SHN_UNDEF)
        symbols.defined.emplace_back(file.data() + names.sh_offset + symbol.st_name);
    }
  }
  return symbols;
}

TEST(TRELVAN_EXPORTS, AreTheEntryPointsAndNothingElse) {
  EXPECT_THAT(dynamicSymbols(TRELVAN_MODULE).defined,
              testing::UnorderedElementsAre(TRELVAN_ENTRY_POINTS));
}

}  // namespace
