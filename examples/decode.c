/* Prints the tag URI of a tag's value: decode 3074257BF7194E4000001A85 */
#include <rosetag/rosetag.h>

#include <stdio.h>

int main(int argc, char** argv) {
    char uri[EPC_URI_SIZE];
    EpcStatus status;

    if (argc != 2) {
        fprintf(stderr, "usage: %s HEX\n", argv[0]);
        return 2;
    }
    status = epc_hexToEpcTagUri(argv[1], (int32_t)sizeof uri, uri);
    if (status != EPC_OK) {
        fprintf(stderr, "%s: %s\n", argv[1], epc_statusText(status));
        return 1;
    }
    puts(uri);
    return 0;
}
