// replay NAME N FOLDER...: a property without a fuzzer. It is shown every file of the folders, then N inputs that are
// random, or one of the files with random changes. Where it does not hold, NAME.input has the input at hand.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "fuzz/expect.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

class Randomness {
public:
    std::size_t below(std::size_t n) { return random_() % n; }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }

    Bytes bytes(std::size_t n)
    {
        Bytes result(n);
        for (std::uint8_t& b : result)
            b = byte();
        return result;
    }

    // The same with a few bytes changed, removed, doubled or put in.
    Bytes changed(Bytes bytes)
    {
        for (std::size_t n = 1 + below(4); n > 0 && !bytes.empty(); --n) {
            const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
            const std::size_t length = std::min<std::size_t>(below(30), static_cast<std::size_t>(bytes.end() - at));
            const Bytes part(at, at + static_cast<std::ptrdiff_t>(length));
            switch (below(4)) {
            case 0:
                *at = byte();
                break;
            case 1:
                bytes.erase(at, at + static_cast<std::ptrdiff_t>(length));
                break;
            case 2:
                bytes.insert(at, part.begin(), part.end());
                break;
            default:
                bytes.insert(at, byte());
            }
        }
        return bytes;
    }

private:
    std::mt19937 random_{1};
};

std::vector<Bytes> filesOf(const std::string& folder)
{
    std::vector<Bytes> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return files;
}

// Shows inputs to the property, each of them written down first. The file is made once: making it anew each time would
// take longer than all else.
class Witness {
public:
    explicit Witness(const std::string& path) : path_(path), file_(path, std::ios::binary) { }

    void show(const Bytes& input)
    {
        file_.seekp(0);
        file_.write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size())).flush();
        std::filesystem::resize_file(path_, input.size());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }

private:
    std::string path_;
    std::ofstream file_;
};

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv, argv + argc);
    std::vector<Bytes> inputs;
    for (std::size_t i = 3; i < words.size(); ++i)
        for (Bytes& file : filesOf(words[i]))
            inputs.push_back(std::move(file));
    Witness witness(words[1] + ".input");
    for (const Bytes& input : inputs)
        witness.show(input);
    Randomness random;
    for (unsigned long n = std::stoul(words[2]); n > 0; --n)
        witness.show(inputs.empty() || random.below(3) == 0 ? random.bytes(random.below(600))
                                                            : random.changed(inputs[random.below(inputs.size())]));
    std::cout << inputs.size() << " files and " << words[2] << " random inputs\n";
}
