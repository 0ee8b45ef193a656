#include "tests/support/fuzz_corpus.h"

#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>

#include <zlib.h>

namespace korrin::test {
namespace {

constexpr std::size_t blockSize =
    512;  // of tar: a header takes one, contents are filled up to whole ones

std::string unzipped(const std::filesystem::path& path) {
  const std::unique_ptr<gzFile_s, int (*)(gzFile)> file(gzopen(path.c_str(), "rb"), gzclose);
  if (!file) throw std::runtime_error("cannot open " + path.string());
  std::string content;
  std::string part(65536, '\0');
  int length = 0;
  while ((length = gzread(file.get(), part.data(), static_cast<unsigned>(part.size()))) > 0)
    content.append(part, 0, static_cast<std::size_t>(length));
  int error = Z_OK;
  gzerror(file.get(), &error);
  if (error != Z_OK) throw std::runtime_error("cannot unpack " + path.string());
  return content;
}

// A field of a header, which ends at its first NUL.
std::string field(std::string_view header, std::size_t at, std::size_t length) {
  return std::string(header.substr(at, length)).c_str();
}

}  // namespace

std::vector<FuzzInput> fuzzInputs(const std::string& target) {
  const std::string archive =
      unzipped(std::filesystem::path(KORRIN_SOURCE_DIR) / "fuzz" / "corpus" / (target + ".tar.gz"));
  std::vector<FuzzInput> inputs;
  std::string_view rest = archive;
  // A header of nothing but NULs ends the archive.
  while (rest.size() >= blockSize && rest.front() != '\0') {
    const std::string_view header = rest.substr(0, blockSize);
    const std::size_t size = std::stoul(field(header, 124, 12), nullptr, 8);
    const std::size_t blocks = 1 + (size + blockSize - 1) / blockSize;
    if (field(header, 257, 6) != "ustar" || rest.size() < blocks * blockSize)
      throw std::runtime_error("not an archive that script/fuzz packed: " + target);
    const std::string_view content = rest.substr(blockSize, size);
    inputs.push_back({field(header, 0, 100), {content.begin(), content.end()}});
    rest.remove_prefix(blocks * blockSize);
  }
  if (rest.size() < blockSize) throw std::runtime_error("an archive without an end: " + target);
  return inputs;
}

}  // namespace korrin::test
