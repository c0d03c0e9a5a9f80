#include "explain/field_places.h"

#include "bridge/gs1_key_table.h"
#include "gs1/ai_list.h"
#include "schemes/scheme_table.h"
#include "words/scheme_words.h"

#include <algorithm>

namespace rosetag {

namespace {

// Characters of a text.
struct Span {
    std::size_t position;
    std::size_t length;
};

// Characters of the value of an AI, or its code, that a field stands for.
struct AiPiece {
    std::size_t field;
    const AiValue* ai;
    bool isCode;
    Span part;
};

void place(Explanation& explanation, std::size_t field, Form form, Span span) {
    if (span.length > 0) {
        explanation.places.add() = {field, form, span.position, span.length};
    }
}

bool isInTexts(FieldKind kind) {
    switch (kind) {
    case FieldKind::FILTER:
    case FieldKind::COMPANY_PREFIX:
    case FieldKind::REFERENCE_DIGITS:
    case FieldKind::REFERENCE_OPEN:
    case FieldKind::REFERENCE_CHARS7:
    case FieldKind::REFERENCE_CHARS6:
    case FieldKind::NUMBER:
    case FieldKind::PADDED_NUMBER:
    case FieldKind::NUMBER_AFTER_ONE:
    case FieldKind::CHARS7:
    case FieldKind::CHARS6:
    case FieldKind::CAGE_CODE:
        return true;
    default:
        return false;
    }
}

std::size_t fieldNamed(const Explanation& explanation, std::string_view name) {
    const auto* const field =
        std::find_if(explanation.fields.begin(), explanation.fields.end(),
                     [&](const ExplainedField& other) { return other.name == name; });
    return static_cast<std::size_t>(field - explanation.fields.begin());
}

// The fields of a plain scheme that are the fields of its URI bodies, in their order.
std::vector<std::size_t> uriFields(const Explanation& explanation) {
    std::vector<std::size_t> fields;
    for (const SchemeField& field : schemeFields(schemeRowOf(*explanation.scheme))) {
        if (isInTexts(field.kind)) {
            fields.push_back(fieldNamed(explanation, field.name));
        }
    }
    return fields;
}

// The fields of a URI body are separated by full stops; only the last may contain one.
void placeUriBody(Explanation& explanation, Form form, std::string_view uri,
                  std::span<const std::size_t> fields) {
    std::size_t position = uri.rfind(':', uri.find('.')) + 1;
    for (const std::size_t& field : fields) {
        const bool isLast = &field == &fields.back();
        const std::size_t end = isLast ? uri.size() : std::min(uri.find('.', position), uri.size());
        place(explanation, field, form, {position, end - position});
        position = end + 1;
    }
}

void placeUris(const Translation& forms, Explanation& explanation,
               std::span<const std::size_t> fields) {
    if (forms.tagUri.empty()) {
        return;
    }
    const std::string_view name = explanation.scheme->name;
    place(explanation, fieldNamed(explanation, "header"), Form::TAG_URI,
          {forms.tagUri.find(name), name.size()});
    placeUriBody(explanation, Form::TAG_URI, forms.tagUri, fields);
    const bool hasFilter = explanation.scheme->filterLimit != 0;
    placeUriBody(explanation, Form::PURE_IDENTITY, forms.pureIdentity,
                 fields.subspan(hasFilter ? 1 : 0));
}

const AiValue* aiOf(const Translation& forms, std::string_view code) {
    const auto* const ai = std::find_if(forms.ais.begin(), forms.ais.end(),
                                        [=](const AiValue& other) { return other.ai == code; });
    return ai == forms.ais.end() ? nullptr : ai;
}

// The fields of a plain scheme after the filter, as its key arranges them in the values of AIs.
std::vector<AiPiece> piecesOfKey(const Translation& forms, const Explanation& explanation,
                                 std::span<const std::size_t> fields, const Gs1KeyDefinition& key) {
    std::vector<AiPiece> pieces;
    const AiValue* ai = aiOf(forms, key.primaryAi);
    std::size_t position = 0;
    const auto add = [&](std::size_t field, std::size_t length) {
        if (ai != nullptr) {
            pieces.push_back({field, ai, false, {position, length}});
        }
        position += length;
    };
    const auto lengthOf = [&](std::size_t field) { return explanation.fields[field].value.size(); };
    const bool moves = key.digitArrangement == KEY_DIGITS_FIRST_MOVES;
    position += key.digitArrangement == KEY_DIGITS_ZERO_FILL ? 1 : 0;
    if (moves) {
        add(fields[1], 1);
    }
    add(fields[0], lengthOf(fields[0]));
    add(fields[1], lengthOf(fields[1]) - (moves ? 1 : 0));
    position += key.hasCheckDigit == 0 ? 0 : 1;
    for (std::size_t i = 2; i < fields.size(); ++i) {
        if (i + 1 == fields.size() && key.tailIsSecondaryAi != 0) {
            ai = aiOf(forms, key.secondaryAi);
            position = 0;
        }
        add(fields[i], lengthOf(fields[i]));
    }
    return pieces;
}

// The fields of a plus scheme that belong to an AI hold its value in order, AI after AI. The field
// before them may be the code.
std::vector<AiPiece> piecesOfAis(const Translation& forms, const Explanation& explanation) {
    std::vector<AiPiece> pieces;
    const AiValue* ai = forms.ais.begin();
    std::size_t position = 0;
    for (std::size_t i = 0; i < explanation.fields.size(); ++i) {
        const ExplainedField& field = explanation.fields[i];
        const bool isCode = field.name == "AI code" || field.name == "date code";
        if (position > 0 && (isCode || (!field.ai.empty() && field.ai != ai->ai))) {
            ++ai;
            position = 0;
        }
        if (ai == forms.ais.end()) {
            break;
        }
        if (isCode || !field.ai.empty()) {
            pieces.push_back({i, ai, isCode, {position, field.value.size()}});
            position += field.value.size();
        }
    }
    return pieces;
}

// The characters of a link that stand for those of a value which begins at position.
Span escapedSpan(std::string_view link, std::size_t position, Span part) {
    const auto skip = [&](std::size_t from, std::size_t count) {
        for (; count > 0 && from < link.size(); --count) {
            from += link[from] == '%' ? std::size_t{3} : 1;
        }
        return from;
    };
    const std::size_t begin = skip(position, part.position);
    return {begin, skip(begin, part.length) - begin};
}

// Where the code of an AI is in a link as this library writes it, and its value after one
// character: "/01/..." in the path, "?17=..." or "&17=..." in the query.
std::size_t codeInLink(std::string_view link, std::string_view ai) {
    for (std::size_t position = 0; (position = link.find(ai, position)) != std::string_view::npos;
         ++position) {
        const std::size_t end = position + ai.size();
        if (position == 0 || end >= link.size()) {
            continue;
        }
        const bool isInPath = link.find('?') > position;
        const std::string_view before = link.substr(0, position);
        const auto slashes = std::count(before.begin(), before.end(), '/');
        if (isInPath ? link[position - 1] == '/' && link[end] == '/' && slashes % 2 == 1
                     : std::string_view("?&").find(link[position - 1]) != std::string_view::npos &&
                           link[end] == '=') {
            return position;
        }
    }
    return std::string_view::npos;
}

void placeInLink(Explanation& explanation, std::string_view link, const AiPiece& piece) {
    const std::size_t code = codeInLink(link, piece.ai->ai);
    if (code == std::string_view::npos) {
        return;
    }
    place(explanation, piece.field, Form::DIGITAL_LINK,
          piece.isCode ? Span{code, piece.ai->ai.size()}
                       : escapedSpan(link, code + piece.ai->ai.size() + 1, piece.part));
}

// Element strings and barcode strings have their AIs in an order that differs from that of the
// bits.
void placeInText(Explanation& explanation, Form form, std::string_view text,
                 std::span<const AiPiece> pieces) {
    const bool hasBrackets = form == Form::ELEMENT_STRING;
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t code = position + (hasBrackets ? 1 : 0);
        const auto isHere = [&](const AiPiece& piece) {
            return text.substr(code).starts_with(piece.ai->ai);
        };
        const auto piece = std::find_if(pieces.begin(), pieces.end(), isHere);
        if (piece == pieces.end()) {
            return;
        }
        const std::size_t codeEnd = code + piece->ai->ai.size();
        const std::size_t value = codeEnd + (hasBrackets ? 1 : 0);
        for (const AiPiece& other : pieces) {
            if (other.ai == piece->ai) {
                place(explanation, other.field, form,
                      other.isCode ? Span{code, codeEnd - code}
                                   : Span{value + other.part.position, other.part.length});
            }
        }
        position = value + piece->ai->value.size();
        if (position < text.size() && text[position] == GROUP_SEPARATOR) {
            ++position;
        }
    }
}

} // namespace

void placeFields(const Translation& forms, Explanation& explanation) {
    std::vector<AiPiece> pieces;
    if (explanation.scheme->isPlus) {
        pieces = piecesOfAis(forms, explanation);
    } else {
        const std::vector<std::size_t> fields = uriFields(explanation);
        placeUris(forms, explanation, fields);
        const Gs1KeyDefinition* const key = gs1KeyFindByName(explanation.scheme->family);
        if (key == nullptr) {
            return;
        }
        pieces = piecesOfKey(forms, explanation, std::span(fields).subspan(1), *key);
    }
    placeInText(explanation, Form::ELEMENT_STRING, forms.elementString, pieces);
    placeInText(explanation, Form::BARCODE_STRING, forms.barcodeString, pieces);
    for (const AiPiece& piece : pieces) {
        placeInLink(explanation, forms.digitalLink, piece);
    }
}

} // namespace rosetag
