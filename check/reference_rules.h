/// The table of values that refer to each other, with the reasons: handles, media modes, menus,
/// limits. The checks use it, and the explanation of a key.
///
/// Modules, sections and keys are patterns: '?' is one character, '*' any number.
#pragma once

#include <cstdint>
#include <span>

namespace paramgen::check {

/// What a handle can name.
enum class TargetKind : std::uint8_t {
    kPipe,
    kChannel,
    kGroup,
    kPort,
    kEncoder,
    kAudioEncoder,
    kAudioDevice,
    kAudioChannel,
};

/// Where targets of a kind have their handles.
struct TargetRow {
    TargetKind kind;
    const char* name;     ///< "encoder"
    const char* section;  ///< "venc.?"
    const char* key;      ///< "venchdl"
    const char* enable;   ///< a boolean of the same section; null: they are always enabled
    bool hasParent;       ///< handles are told apart within the section two levels up only
};

/// A key that holds a handle.
struct HandleRule {
    const char* module;
    const char* section;
    const char* key;
    const char* enable;  ///< a boolean of the same section without which it does not count; or null
    const char* bound;   ///< a key of the same section that says which firmware module is meant,
    std::int32_t number;  ///< and the number that it has to have; or null
    TargetKind target;
    const char* targetModule;  ///< where there are several, one of them has to have the target
    const char* parent;  ///< a key of the same section with the handle of the target's parent, "."
                         ///< for the parent of this very section; or null
    const char* reason;
};

/// A key that holds one of a menu's values.
struct MenuRule {
    const char* module;
    const char* section;
    const char* key;
    const char* menu;  ///< section of the module "valueset"
    const char* reason;
};

/// A key that names a media mode which a module has to serve.
struct ModeRule {
    const char* module;
    const char* section;
    const char* key;
    const char* reason;
};

/// Two keys of a section of which one must not be above the other.
struct LimitRule {
    const char* module;
    const char* section;
    const char* low;
    const char* high;
    const char* reason;
};

std::span<const TargetRow> TargetRows();
std::span<const HandleRule> HandleRules();
std::span<const MenuRule> MenuRules();
std::span<const ModeRule> ModeRules();
std::span<const LimitRule> LimitRules();

/// The first row of a kind of target.
const TargetRow& TargetRowOf(TargetKind kind);

/// Modules that serve media modes, lens calibrations, and the key by which they name their modes.
inline constexpr char kModeModules[] = "cam0_mediamode?";
inline constexpr char kLensModules[] = "cam0_ldccfg_?";
inline constexpr char kServedMode[] = "common:mediamode";
inline constexpr char kMenuModule[] = "valueset";

}  // namespace paramgen::check
