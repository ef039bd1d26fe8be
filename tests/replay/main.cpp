// Reads cases from standard input, one JSON object a line, and prints one answer a line in the
// same order. It compares nothing.
#include <iostream>
#include <string>

#include "tests/replay/Replay.h"

int main() {
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        std::cout << diary::replay::answer(QByteArray::fromStdString(line)).constData() << '\n';
    }
    return 0;
}
