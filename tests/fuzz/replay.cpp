// Runs a fuzzer without its engine, in any build: its corpus, and then inputs that are made of the corpus by a known seed.
//
//     fuzz_NAME CORPUS [INPUTS [SEED]]

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LargestInput = 4096;

std::vector<std::string> ReadCorpus(const fs::path& folder)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<std::string> corpus;
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return corpus;
}

/// Inputs like those of the corpus, with bytes changed, left out, doubled, and taken from one another.
class TMutator {
public:
    TMutator(const std::vector<std::string>& corpus, unsigned seed)
        : corpus_(corpus)
        , random_(seed)
    {
    }

    std::string Input()
    {
        std::string input = Pick();
        for (auto changes = 1 + Below(8); changes > 0; --changes)
            Change(input);
        input.resize(std::min(input.size(), LargestInput));
        return input;
    }

private:
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
    const std::string& Pick() { return corpus_[Below(corpus_.size())]; }
    std::string PieceOf(const std::string& text)
    {
        const auto begin = Below(text.size() + 1);
        return text.substr(begin, Below(1 + std::min<std::size_t>(text.size() - begin, 32)));
    }

    void Change(std::string& input)
    {
        const auto place = Below(input.size() + 1);
        switch (Below(4)) {
        case 0:
            if (place < input.size())
                input[place] = static_cast<char>(Below(256));
            break;
        case 1:
            input.erase(place, Below(16));
            break;
        case 2:
            input.insert(place, PieceOf(input));
            break;
        default:
            input.insert(place, PieceOf(Pick()));
        }
    }

    const std::vector<std::string>& corpus_;
    std::mt19937 random_;
};

/// The fuzzer's own checks end the process; so that the input is not lost, it is written before.
void Run(const std::string& input)
{
    const auto* file = std::getenv("FUZZ_LAST_INPUT");
    if (file)
        std::ofstream(file, std::ios::binary) << input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "fuzz_NAME CORPUS [INPUTS [SEED]]\n");
        return 2;
    }
    const auto corpus = ReadCorpus(argv[1]);
    if (corpus.empty()) {
        std::fprintf(stderr, "the corpus is empty\n");
        return 2;
    }
    const auto inputs = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const auto seed = static_cast<unsigned>(argc > 3 ? std::strtoul(argv[3], nullptr, 10) : std::random_device()());
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    for (const auto& input : corpus)
        Run(input);
    TMutator mutator(corpus, seed);
    for (unsigned long count = 0; count < inputs; ++count)
        Run(mutator.Input());
    std::printf("%zu inputs of the corpus and %lu made of them: nothing found\n", corpus.size(), inputs);
    return 0;
}
