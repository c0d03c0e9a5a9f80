// Prints what to write on a tag for a scanned barcode: label "(01)80614141123458(21)6789" 7
#include <rosetag/rosetag.h>

#include <array>
#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: " << argv[0] << " ELEMENT_STRING COMPANY_PREFIX_LENGTH\n";
        return 2;
    }
    constexpr int pointOfSaleFilter = 1;
    std::array<char, 2 * EPC_MAX_BINARY_BYTES + 1> hex{};
    const EpcStatus status =
        epc_gs1ElementStringToHex(argv[1], EPC_SCHEME_SGTIN_96, pointOfSaleFilter,
                                  std::atoi(argv[2]), static_cast<int>(hex.size()), hex.data());
    if (status != EPC_OK) {
        std::cerr << argv[1] << ": " << epc_statusText(status) << '\n';
        return 1;
    }
    std::cout << hex.data() << '\n';
    return 0;
}
