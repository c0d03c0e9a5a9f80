/*
 * What a plain scheme's own operations are: between its bits behind the header and the body of its
 * URIs.
 */
#ifndef ROSETAG_SCHEMES_LAYOUT_H
#define ROSETAG_SCHEMES_LAYOUT_H

#include "schemes/tag_scheme.h"

struct Layout {
    EpcScheme scheme;
    BinaryToUriBody read;
    UriBodyToBinary write;
};

#endif
