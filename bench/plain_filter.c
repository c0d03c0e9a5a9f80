/*
 * What one writes over the library to convert a file of lines: hex in, tag URIs out.
 */
#define _POSIX_C_SOURCE 200809L
#include <rosetag/rosetag.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

int main(void) {
    char* line = NULL;
    size_t room = 0;
    ssize_t length = 0;
    int failures = 0;
    while ((length = getline(&line, &room, stdin)) >= 0) {
        char uri[EPC_URI_SIZE];
        EpcStatus status = EPC_OK;
        line[strcspn(line, "\r\n")] = '\0';
        status = epc_hexToEpcTagUri(line, EPC_URI_SIZE, uri);
        if (status != EPC_OK) {
            ++failures;
            uri[0] = '\0';
            fprintf(stderr, "%s: %s\n", line, epc_statusName(status));
        }
        fputs(uri, stdout);
        fputc('\n', stdout);
    }
    free(line);
    if (ferror(stdin) || fflush(stdout) != 0) {
        perror("plain_filter");
        return 3;
    }
    return failures > 0 ? 1 : 0;
}
