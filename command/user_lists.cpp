#include "user_lists.h"

#include "line_source.h"
#include "output.h"

namespace rosetag {

namespace {

std::string fileText(const std::string& fileName) {
    LineSource source = lineSourceOpen(fileName);
    LineBlock block;
    std::string text;
    while (lineSourceRead(source, block)) {
        text += textAreaView(block.text);
    }
    lineSourceClose(source);
    return text;
}

void throwIfBad(const std::string& fileName, const Failure& failure) {
    if (isFailure(failure)) {
        throw IoError(fileName + ": " + failure.message);
    }
}

} // namespace

GcpList gcpListRead(const std::string& fileName) {
    GcpList list;
    throwIfBad(fileName, readGcpList(fileText(fileName), list));
    return list;
}

DesignerList designerListRead(const std::string& fileName) {
    DesignerList list;
    throwIfBad(fileName, readDesignerList(fileText(fileName), list));
    return list;
}

} // namespace rosetag
