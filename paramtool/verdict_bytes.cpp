#include "paramtool/verdict_bytes.h"

#include <cstdint>
#include <cstring>

namespace paramgen::paramtool {
namespace {

using diagnostics::Finding;
using diagnostics::Note;
using diagnostics::Place;

class Writer {
public:
    void Number(std::uint32_t number) {
        char bytes[sizeof number];
        std::memcpy(bytes, &number, sizeof number);
        bytes_.append(bytes, sizeof bytes);
    }

    void Text(const std::string& text) {
        Number(static_cast<std::uint32_t>(text.size()));
        bytes_ += text;
    }

    void Put(const Place& place) {
        Text(place.file);
        Text(place.path);
        Number(place.line);
        Number(place.column);
        Number(place.endColumn);
        Text(place.source);
    }

    void Put(const Finding& finding) {
        Number(static_cast<std::uint32_t>(finding.id));
        Number(static_cast<std::uint32_t>(finding.severity));
        Put(finding.place);
        for (const std::string* text : {&finding.message, &finding.suggestion, &finding.module,
                                        &finding.section, &finding.key}) {
            Text(*text);
        }
        Number(static_cast<std::uint32_t>(finding.notes.size()));
        for (const Note& note : finding.notes) {
            Put(note.place);
            Text(note.message);
        }
    }

    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::uint32_t Number() {
        std::uint32_t number = 0;
        std::memcpy(&number, bytes_.data(), sizeof number);
        bytes_.remove_prefix(sizeof number);
        return number;
    }

    std::string Text() {
        const std::uint32_t size = Number();
        std::string text(bytes_.substr(0, size));
        bytes_.remove_prefix(size);
        return text;
    }

    Place TakePlace() {
        Place place;
        place.file = Text();
        place.path = Text();
        place.line = Number();
        place.column = Number();
        place.endColumn = Number();
        place.source = Text();
        return place;
    }

    Finding TakeFinding() {
        Finding finding;
        finding.id = static_cast<diagnostics::RuleId>(Number());
        finding.severity = static_cast<diagnostics::Severity>(Number());
        finding.place = TakePlace();
        for (std::string* text : {&finding.message, &finding.suggestion, &finding.module,
                                  &finding.section, &finding.key}) {
            *text = Text();
        }
        for (std::uint32_t count = Number(); count != 0; --count) {
            Note note;
            note.place = TakePlace();
            note.message = Text();
            finding.notes.push_back(std::move(note));
        }
        return finding;
    }

private:
    std::string_view bytes_;
};

}  // namespace

std::string VerdictBytes(const check::Verdict& verdict) {
    Writer body;
    body.Number(static_cast<std::uint32_t>(verdict.findings.size()));
    for (const Finding& finding : verdict.findings) {
        body.Put(finding);
    }
    body.Number(static_cast<std::uint32_t>(verdict.lacking.size()));
    for (const std::string& module : verdict.lacking) {
        body.Text(module);
    }
    Writer whole;
    whole.Text(body.bytes());
    return whole.bytes();
}

bool TakeVerdictBytes(std::string* bytes, check::Verdict* verdict) {
    std::uint32_t size = 0;
    if (bytes->size() < sizeof size) {
        return false;
    }
    std::memcpy(&size, bytes->data(), sizeof size);
    if (bytes->size() - sizeof size < size) {
        return false;
    }
    Reader reader(std::string_view(*bytes).substr(sizeof size));
    *verdict = {};
    for (std::uint32_t count = reader.Number(); count != 0; --count) {
        verdict->findings.push_back(reader.TakeFinding());
    }
    for (std::uint32_t count = reader.Number(); count != 0; --count) {
        verdict->lacking.push_back(reader.Text());
    }
    bytes->erase(0, sizeof size + size);
    return true;
}

}  // namespace paramgen::paramtool
