#include "arrow_rows.h"

namespace rosetag::python {
namespace {

// What a struct that was handed on holds on to.
template <typename Struct>
struct Holder {
    SharedRows rows;
    std::vector<Struct> children;
    std::vector<Struct*> pointers;
};

template <typename Struct>
void release(Struct* given) {
    auto* const holder = static_cast<Holder<Struct>*>(given->private_data);
    for (Struct& child : holder->children) {
        if (child.release != nullptr) {
            child.release(&child);
        }
    }
    given->release = nullptr;
    delete holder;
}

// A copy of the struct over the same buffers, its children likewise: each can be moved away and
// released alone.
template <typename Struct>
void share(const SharedRows& rows, const Struct& source, Struct& out) {
    auto* const holder = new Holder<Struct>{rows, {}, {}};
    holder->children.resize(static_cast<std::size_t>(source.n_children));
    for (std::size_t i = 0; i < holder->children.size(); ++i) {
        share(rows, *source.children[i], holder->children[i]);
        holder->pointers.push_back(&holder->children[i]);
    }
    out = source;
    out.children = holder->pointers.data();
    out.release = release<Struct>;
    out.private_data = holder;
}

struct Stream {
    std::vector<SharedRows> chunks;
    std::size_t next = 0;
};

Stream& streamIn(ArrowArrayStream* stream) {
    return *static_cast<Stream*>(stream->private_data);
}

int getSchema(ArrowArrayStream* stream, ArrowSchema* out) {
    shareType(streamIn(stream).chunks.front(), *out);
    return 0;
}

int getNext(ArrowArrayStream* stream, ArrowArray* out) {
    Stream& state = streamIn(stream);
    *out = {};
    if (state.next < state.chunks.size()) {
        shareArray(state.chunks[state.next++], *out);
    }
    return 0;
}

const char* getLastError(ArrowArrayStream*) {
    return nullptr;
}

void releaseStream(ArrowArrayStream* stream) {
    delete &streamIn(stream);
    stream->release = nullptr;
}

} // namespace

void shareType(const SharedRows& rows, ArrowSchema& type) {
    share(rows, rows->type, type);
}

void shareArray(const SharedRows& rows, ArrowArray& array) {
    share(rows, rows->array, array);
}

void streamOf(std::vector<SharedRows> chunks, ArrowArrayStream& stream) {
    stream = {getSchema, getNext, getLastError, releaseStream, new Stream{std::move(chunks)}};
}

} // namespace rosetag::python
