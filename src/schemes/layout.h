/*
 * What a plain scheme's own operations are: between its bits behind the header and the body of its
 * URIs.
 */
#ifndef ROSETAG_SCHEMES_LAYOUT_H
#define ROSETAG_SCHEMES_LAYOUT_H

#include "schemes/field_head.h"
#include "schemes/partition.h"
#include "schemes/tag_scheme.h"

namespace rosetag {

struct Layout {
    EpcScheme scheme;
    BinaryToUriBody read;
    UriBodyToBinary write;
};

// Header, filter, partition value, company prefix and reference.
constexpr std::int32_t layoutKeyBits(EpcScheme scheme, const PartitionTable& table) {
    return fieldHeadBits(scheme) + PARTITION_BITS + partitionTableBits(table);
}

} // namespace rosetag

#endif
