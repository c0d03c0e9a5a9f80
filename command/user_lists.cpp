#include "user_lists.h"

#include "line_source.h"
#include "output.h"

namespace rosetag {

namespace {

std::string fileText(const std::string& fileName, std::vector<KnownFile>& inputs) {
    LineSource source = lineSourceOpen(fileName);
    if (const std::optional<FileIdentity> identity = fileIdentity(source.descriptor)) {
        inputs.push_back({fileName, *identity});
    }
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

GcpList gcpListRead(const std::string& fileName, std::vector<KnownFile>& inputs) {
    GcpList list;
    throwIfBad(fileName, readGcpList(fileText(fileName, inputs), list));
    return list;
}

DesignerList designerListRead(const std::string& fileName, std::vector<KnownFile>& inputs) {
    DesignerList list;
    throwIfBad(fileName, readDesignerList(fileText(fileName, inputs), list));
    return list;
}

} // namespace rosetag
