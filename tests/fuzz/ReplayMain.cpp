// Runs a fuzz target over every file of the folders on the command line.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int ReplayFolder(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    // The name is out before the target runs, so that a crash says which file it was.
    std::printf("%s\n", entry.path().filename().c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
    ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) count += ReplayFolder(argv[i]);
  std::printf("%d files replayed\n", count);
  return count > 0 ? 0 : 1;  // an empty corpus checks nothing
}
