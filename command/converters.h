/*
 * The converters of the commands beside decode and encode.
 */
#ifndef ROSETAG_COMMAND_CONVERTERS_H
#define ROSETAG_COMMAND_CONVERTERS_H

#include "converter.h"

namespace rosetag {

// Explains bits field by field.
std::unique_ptr<Converter> explainConverter(const ReadOptions& options, bool isJson);

// Reads TIDs. The list, which may be null, names designers and chips.
std::unique_ptr<Converter> tidConverter(const DesignerList* designers, bool isJson);

// Makes the bits of values of an AI.
struct AiEncoding {
    std::string ai;
    bool withCode = false;
    int encoding = AI_ENC_AUTO;
};
std::unique_ptr<Converter> aiEncodeConverter(const AiEncoding& encoding, bool isJson);

// Reads the bits of values: of the AI, or beginning with their own.
std::unique_ptr<Converter> aiDecodeConverter(const std::string& ai, bool isJson);

// Checks values against what GS1 demands of them.
std::unique_ptr<Converter> checkConverter(const ReadOptions& options, bool isJson);

} // namespace rosetag

#endif
