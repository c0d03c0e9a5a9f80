/*
 * A program in C99 as a user writes it: it is compiled as C, linked with the library by the C
 * compiler, and fails with a line for each conversion that gives another result than it should.
 */
#include <rosetag/rosetag.h>

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void expectStatus(const char* call, EpcStatus status, EpcStatus expected) {
    if (status != expected) {
        fprintf(stderr, "%s: status %d, expected %d\n", call, (int)status, (int)expected);
        ++failures;
    }
}

static void expectText(const char* call, EpcStatus status, const char* text, const char* expected) {
    expectStatus(call, status, EPC_OK);
    if (status == EPC_OK && strcmp(text, expected) != 0) {
        fprintf(stderr, "%s: \"%s\", expected \"%s\"\n", call, text, expected);
        ++failures;
    }
}

static void convertTagValue(void) {
    const char* hex = "3074257BF7194E4000001A85";
    const char* tagUri = "urn:epc:tag:sgtin-96:3.0614141.812345.6789";
    const char* elementString = "(01)80614141123458(21)6789";
    char text[256];

    expectText("epc_hexToEpcTagUri", epc_hexToEpcTagUri(hex, (int32_t)sizeof text, text), text,
               tagUri);
    expectText("epc_epcTagUriToHex", epc_epcTagUriToHex(tagUri, (int32_t)sizeof text, text), text,
               hex);
    expectText("epc_hexToGs1ElementString",
               epc_hexToGs1ElementString(hex, (int32_t)sizeof text, text), text, elementString);
    expectText("epc_gs1ElementStringToHex",
               epc_gs1ElementStringToHex(elementString, EPC_SCHEME_SGTIN_96, 3, 7,
                                         (int32_t)sizeof text, text),
               text, hex);
    expectStatus("epc_hexToEpcTagUri without room", epc_hexToEpcTagUri(hex, 16, text),
                 EPC_ERR_NO_ROOM);
    expectText("what had room of it", EPC_OK, text, "urn:epc:tag:");
}

static void convertAiValue(void) {
    char hex[32];
    char value[32];
    int32_t bits = -1;

    expectText("epc_AIToHex",
               epc_AIToHex("01", "09506000134352", 0, (int32_t)sizeof hex, hex, &bits), hex,
               "09506000134352");
    if (bits != 56) {
        fprintf(stderr, "epc_AIToHex: %d bits, expected 56\n", (int)bits);
        ++failures;
    }
    expectText("epc_hexValueToAI", epc_hexValueToAI(hex, "01", (int32_t)sizeof value, value), value,
               "09506000134352");
}

static void decodeTid(void) {
    const uint8_t tid[] = {0xE2, 0x00, 0x34, 0x12};
    TidRecord record;

    expectStatus("tid_binaryDecode", tid_binaryDecode(32, tid, &record), EPC_OK);
    if (record.mdid != 0x003 || record.tmid != 0x412) {
        fprintf(stderr, "tid_binaryDecode: mdid %x, tmid %x, expected 3 and 412\n", record.mdid,
                record.tmid);
        ++failures;
    }
}

int main(void) {
    convertTagValue();
    convertAiValue();
    decodeTid();
    return failures == 0 ? 0 : 1;
}
