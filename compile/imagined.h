/// Runs the loaders without files: an object answers their queries.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "compile/compilation.h"
#include "compile/session.h"

namespace paramgen::compile {

/// A product without files.
class Imagined {
public:
    virtual ~Imagined() = default;

    /// Whether it has this module.
    virtual bool HasModule(std::string_view name) = 0;

    /// The value of "section:key" in a module; none when the key is absent. `place` is where it
    /// goes, as in an `Answer`.
    virtual std::optional<std::string> Text(std::string_view module, std::string_view key,
                                            const std::optional<Place>& place) = 0;
};

/// Compiles such a product. The result has no files and no log. What the product's functions throw
/// is thrown when the run, which gets no more answers, is over.
Compilation CompileImagined(Imagined* product, bool keepAnswers);

}  // namespace paramgen::compile
