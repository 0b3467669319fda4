#include "confaccess/ini_reader.h"

#include <algorithm>
#include <new>

#include "confaccess/ini_line.h"
#include "confaccess/line_reader.h"
#include "confaccess/line_rules.h"
#include "confaccess/number.h"
#include "confaccess/text_file.h"
#include "confaccess/watch.h"

namespace paramgen {
namespace {

static_assert(LineReader::kPieceMax <= Dictionary::kNameMax, "what a line names fits");

/// Texts of up to this size are read into a buffer on the stack.
constexpr std::size_t kShortText = std::size_t{16} * 1024;

IniError g_lastError = IniError::kNone;

/// Puts the lines of one file into a dictionary.
class Loader {
public:
    explicit Loader(Dictionary* dictionary) : dictionary_(dictionary) {}

    /// Adds the content of a line, which is its text before the comment.
    void Take(std::string_view content) {
        const IniLine line = ParseIniLine(content);
        switch (line.kind) {
            case IniLineKind::kNothing:
                break;
            case IniLineKind::kSection:
                OpenSection(line.name);
                break;
            case IniLineKind::kValue:
                dictionary_->AddValue(line.name, line.value);
                break;
            case IniLineKind::kSyntaxError:
                g_lastError = IniError::kSyntax;
                hasErrors_ = true;
                break;
        }
    }

    bool HasErrors() const { return hasErrors_; }

private:
    /// Begins a section. "[]" continues the current one; before the first section it adds the
    /// section with the empty name.
    void OpenSection(std::string_view name) {
        if (name.data() != nullptr || !hasSection_) {
            dictionary_->AddSection(name);
            hasSection_ = true;
        }
    }

    Dictionary* dictionary_;
    bool hasErrors_ = false;
    bool hasSection_ = false;
};

/// Adds every line of `text` to the dictionary. Returns false when a line is too long or invalid.
bool TakeLines(std::string_view text, Dictionary* dictionary) {
    Loader loader(dictionary);
    LineReader lines(text);
    TextLine line;
    while (lines.Next(&line)) {
        if (IsTooShort(line)) {
            continue;
        }
        if (IsTooLong(line)) {
            g_lastError = IniError::kSyntax;
            return false;
        }
        if (!line.hasNewline && AsksForNextLine(line)) {
            continue;  // there is no next line
        }
        loader.Take(line.content);
    }
    return !loader.HasErrors();
}

/// Fills `dictionary`, which lives in `arena`, from the file at `path`.
bool Fill(const char* path, Arena* arena, Dictionary* dictionary) {
    alignas(8) char bytes[kShortText];
    Arena scratch(bytes);
    Text text;
    const ReadResult result = READ_TEXT_FILE(path, &scratch, &text);
    if (result == ReadResult::kUnreadable) {
        return false;
    }
    if (result == ReadResult::kNoMemory || !dictionary->Create(text.View(), arena)) {
        g_lastError = IniError::kLoadNotInserted;
        return false;
    }
    if (!TakeLines(text.View(), dictionary)) {
        return false;
    }
    if (!dictionary->Finish(arena)) {
        g_lastError = IniError::kLoadNotInserted;
        return false;
    }
    return true;
}

}  // namespace

IniError LastIniError() {
    return g_lastError;
}

const Dictionary* LoadIniFile(const char* path, Arena* arena) {
    if (path == nullptr) {
        g_lastError = IniError::kNullArgument;
        return nullptr;
    }
    void* memory = arena->Take(sizeof(Dictionary));
    if (memory == nullptr) {
        g_lastError = IniError::kNoDictionary;
        return nullptr;
    }
    Dictionary* dictionary = new (memory) Dictionary;
    return Fill(path, arena, dictionary) ? dictionary : nullptr;
}

const char* FindText(const Dictionary& dictionary, std::string_view key, const char* defaultValue) {
    return dictionary.FindText({key.data(), std::min(key.size(), Dictionary::kNameMax)},
                               defaultValue);
}

std::int32_t FindInteger(const Dictionary& dictionary, const char* key, std::int32_t defaultValue) {
    const char* text = FindText(dictionary, key, nullptr);
    return text == nullptr ? defaultValue : ParseInteger(text, 0);
}

}  // namespace paramgen
