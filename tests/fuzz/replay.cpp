// SPDX-License-Identifier: MIT
// Runs a fuzz target over stored inputs, and over each of them cut short at every byte and with every byte
// turned, where no fuzzing engine is built in.
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int count, char** names) {
    int inputs = 0;
    for (int place = 1; place < count; ++place) {
        std::ifstream file(names[place], std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "cannot read %s\n", names[place]);
            return 1;
        }
        std::string bytes((std::istreambuf_iterator<char>(file)), {});
        run(bytes);
        for (std::size_t at = 0; at < bytes.size(); at += 3) {
            run(bytes.substr(0, at));
            std::string turned = bytes;
            turned[at] = static_cast<char>(turned[at] ^ (1 << (at % 8)));
            run(turned);
        }
        ++inputs;
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
