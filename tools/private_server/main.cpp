#include <exception>
#include <iostream>
#include <limits>

#include "private_server.h"

/// Runs a server for tests of another system: prints the settings that name it, and ends with its input.
int main() {
    try {
        orv::PrivateServer server;
        server.listen();
        std::cout << "host=localhost port=" << server.port()
                  << " user=keeper sslmode=verify-full sslrootcert=" << (server.folder() / "authority.pem").string()
                  << std::endl;
        std::cin.ignore(std::numeric_limits<std::streamsize>::max());
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "server_for_tests: " << failure.what() << std::endl;
        return 1;
    }
}
