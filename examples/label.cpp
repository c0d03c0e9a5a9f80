// Prints what to write on a tag for a scanned barcode: label "]C10180614141123458216789" 7
#include <rosetag/rosetag.hpp>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: " << argv[0] << " BARCODE_STRING COMPANY_PREFIX_LENGTH\n";
        return 2;
    }
    const rosetag::Target target{
        .scheme = EPC_SCHEME_SGTIN_96, .filter = 1, .gcpLength = std::atoi(argv[2])};
    const auto hex = rosetag::barcodeStringToHex(argv[1], target);
    if (!hex) {
        std::cerr << argv[1] << ": " << hex.message() << '\n';
        return 1;
    }
    std::cout << *hex << '\n';
    return 0;
}
