#include "report/policy.h"

#include "report/sha256.h"

namespace paramgen::report {

std::string Policy(std::string_view script, std::string_view style) {
    return "default-src 'none'; script-src 'sha256-" + Base64(Sha256(script)) +
           "'; style-src 'sha256-" + Base64(Sha256(style)) +
           "'; base-uri 'none'; form-action 'none'";
}

}  // namespace paramgen::report
