// Linux: the dynamic symbols of a 64-bit ELF file of this machine's byte order.
#include "host/validate/means/exportedsymbols.h"

#include <elf.h>

#include <bit>
#include <cstring>

#include "host/base/failure.h"
#include "host/base/wholefile.h"

namespace {

class ElfFile {
 public:
  explicit ElfFile(const std::filesystem::path& binary)
      : path(binary), bytes(readWholeFile(binary)) {}

  template <typename Record>
  Record at(std::uint64_t offset) const {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(Record)) damaged();
    Record record{};
    std::memcpy(&record, bytes.data() + offset, sizeof record);
    return record;
  }

  // The zero-terminated text at `index` of a table of texts.
  std::string textAt(const Elf64_Shdr& table, std::uint64_t index) const {
    if (table.sh_offset > bytes.size() || bytes.size() - table.sh_offset < table.sh_size ||
        index >= table.sh_size)
      damaged();
    const auto* first = reinterpret_cast<const char*>(bytes.data()) + table.sh_offset + index;
    return {first, strnlen(first, table.sh_size - index)};
  }

  [[noreturn]] void damaged() const {
    throw Failure(path.string() + ": its table of symbols is damaged");
  }

 private:
  std::filesystem::path path;
  std::vector<unsigned char> bytes;
};

bool isRead(const Elf64_Ehdr& header) {
  constexpr unsigned char kByteOrder =
      std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;
  return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
         header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_ident[EI_DATA] == kByteOrder &&
         header.e_shoff != 0 && header.e_shentsize == sizeof(Elf64_Shdr);
}

// An absolute one is the name of a version.
bool isExported(const Elf64_Sym& symbol) {
  const unsigned visibility = ELF64_ST_VISIBILITY(symbol.st_other);
  return symbol.st_shndx != SHN_UNDEF && symbol.st_shndx != SHN_ABS &&
         ELF64_ST_BIND(symbol.st_info) != STB_LOCAL &&
         (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}

}  // namespace

std::optional<std::vector<std::string>> exportedSymbols(const std::filesystem::path& binary) {
  const ElfFile file(binary);
  const auto header = file.at<Elf64_Ehdr>(0);
  if (!isRead(header)) return std::nullopt;
  const auto section = [&](std::uint64_t number) {
    return file.at<Elf64_Shdr>(header.e_shoff + number * sizeof(Elf64_Shdr));
  };
  for (std::uint64_t number = 0; number < header.e_shnum; ++number) {
    const Elf64_Shdr symbols = section(number);
    if (symbols.sh_type != SHT_DYNSYM) continue;
    if (symbols.sh_link >= header.e_shnum) file.damaged();
    const Elf64_Shdr texts = section(symbols.sh_link);
    std::vector<std::string> names;
    for (std::uint64_t at = 0; at + sizeof(Elf64_Sym) <= symbols.sh_size; at += sizeof(Elf64_Sym)) {
      const auto symbol = file.at<Elf64_Sym>(symbols.sh_offset + at);
      if (isExported(symbol)) names.push_back(file.textAt(texts, symbol.st_name));
    }
    return names;
  }
  return std::nullopt;
}
