// pavane-compile SOURCE TARGET: see compile_command.h.
#include "tools/compile_command.h"

#include <exception>
#include <iostream>

int main(int argumentCount, char** arguments) {
    try {
        return pavane_tools::RunCompileCommand({arguments + 1, arguments + argumentCount}, std::cerr);
    } catch (const std::exception& error) {
        std::cerr << "pavane-compile: " << error.what() << '\n';
        return 2;
    }
}
