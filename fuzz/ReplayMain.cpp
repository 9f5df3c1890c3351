// Runs a fuzz target's entry point over files and folders of inputs, without libFuzzer:
// the normal test build replays the seed corpora and every input that ever failed.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        std::error_code ec;
        if (fs::is_directory(argv[i], ec)) {
            for (const auto& e : fs::directory_iterator(argv[i], ec))
                if (e.is_regular_file() && e.path().filename().string()[0] != '.')
                    inputs.push_back(e.path());
        } else if (fs::is_regular_file(argv[i], ec)) {
            inputs.push_back(argv[i]);
        }
        // A folder that doesn't exist yet (no regression so far) holds nothing to replay.
    }
    std::sort(inputs.begin(), inputs.end());
    for (const fs::path& p : inputs) {
        std::ifstream in(p, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs replayed\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
