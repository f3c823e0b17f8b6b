// Stands in for the fuzzer where it is not built: runs every file of a folder through the target once.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char* argv[])
{
    if (argc != 2 || !std::filesystem::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 1;
    }
    int inputCount = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string content(std::istreambuf_iterator<char>(file), {});
        const std::vector<std::uint8_t> bytes(content.begin(), content.end());
        std::printf("%s\n", entry.path().filename().c_str());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        ++inputCount;
    }
    if (inputCount == 0) std::fprintf(stderr, "%s is empty: nothing was tested\n", argv[1]);
    return inputCount == 0 ? 1 : 0;
}
