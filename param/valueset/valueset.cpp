#include "param/valueset/valueset.h"

#include <iterator>
#include <span>

#include "param/common/propagate.h"

namespace paramgen {

// `Under` gives a set its node. The table of a set tells the kind of its values.

constexpr Field kBurstValueSetsFields[] = {
    RECORD(BurstValueSets, mediaMode, kMediaModeSetTable)
        .Under("cam.%u.burst.mediamode")
        .CountsUpTo(kValueCount)
        .About("Media mode of bursts"),
    RECORD(BurstValueSets, types, kNumberSetTable)
        .Under("cam.%u.burst.type%u")
        .CountedBy(offsetof(BurstValueSets, mediaMode.count), CountBeyond::kRefused)
        .About("Burst type in one of these media modes"),
};

constexpr TableOf<BurstValueSets> kBurstValueSetsTable{nullptr, kBurstValueSetsFields};

constexpr Field kValueSetFields[] = {
    RECORD(ValueSetCfg, payloadType, kNumberSetTable)
        .Under("cam.%d.enc.payloadtype")
        .About("Codec of the recordings"),
    RECORD(ValueSetCfg, recordMediaMode, kMediaModeSetTable)
        .Under("cam.%d.mediamode.record")
        .About("Media mode of recordings"),
    RECORD(ValueSetCfg, photoMediaMode, kMediaModeSetTable)
        .Under("cam.%d.mediamode.photo")
        .About("Media mode of photos"),
    RECORD(ValueSetCfg, wdr, kNumberSetTable)
        .Under("cam.%d.wdr.status")
        .About("Wide dynamic range"),
    RECORD(ValueSetCfg, videoMode, kNumberSetTable)
        .Under("cam.%d.video.mode")
        .About("Video mode of the camera"),
    RECORD(ValueSetCfg, ldc, kNumberSetTable)
        .Under("cam.%d.ldc.status")
        .About("Lens-distortion correction"),
    RECORD(ValueSetCfg, flip, kNumberSetTable)
        .Under("cam.%d.flip.status")
        .About("Picture upside down"),
    RECORD(ValueSetCfg, mirror, kNumberSetTable)
        .Under("cam.%d.mirror.status")
        .About("Picture left to right"),
    RECORD(ValueSetCfg, antiflicker, kNumberSetTable)
        .Under("cam.%d.antiflicker.mode")
        .About("Mains frequency of the lamps"),
    RECORD(ValueSetCfg, dormant, kNumberSetTable)
        .Under("screen.dormant")
        .Times(1000)
        .About("Time until the screen goes dark: seconds in the file, milliseconds in the image"),
    RECORD(ValueSetCfg, brightness, kNumberSetTable)
        .Under("screen.brightness")
        .About("Brightness of the screen"),
    RECORD(ValueSetCfg, volume, kNumberSetTable).Under("volume").About("Volume of the loudspeaker"),
    RECORD(ValueSetCfg, driveSensitivity, kNumberSetTable)
        .Under("drive_sensitivity")
        .About("Sensitivity of the g-sensor while driving"),
    RECORD(ValueSetCfg, parkingSensitivity, kNumberSetTable)
        .Under("parking_sensitivity")
        .About("Sensitivity of the g-sensor while parked"),
    RECORD(ValueSetCfg, usbMode, kNumberSetTable)
        .Under("usb.mode")
        .About("What the camera is to a computer on the USB port"),
    RECORD(ValueSetCfg, language, kNumberSetTable)
        .Under("system.language")
        .About("Language of the menus"),
    RECORD(ValueSetCfg, splitTime, kNumberSetTable)
        .Under("splite_time")
        .About("Length of one file"),
    RECORD(ValueSetCfg, lapseInterval, kNumberSetTable)
        .Under("record.lapse.interval")
        .About("Time between two frames of a time lapse"),
    RECORD(ValueSetCfg, recordType, kNumberSetTable)
        .Under("record.type")
        .About("Type of the recording"),
    RECORD(ValueSetCfg, photoType, kNumberSetTable).Under("photo.type").About("Kind of photo"),
    RECORD(ValueSetCfg, singlePhotoFormat, kNumberSetTable)
        .Under("cam.%u.singlephoto.outputformat")
        .About("Format of single photos"),
    RECORD(ValueSetCfg, lapsePhotoInterval, kNumberSetTable)
        .Under("cam.%u.lapsephoto.interval")
        .About("Time between two photos of a time lapse"),
    RECORD(ValueSetCfg, burst, kBurstValueSetsTable),
    RESERVED(ValueSetCfg, unused).About("A set that no setting has"),
};

namespace {

/// Returns true. The compiler refuses it unless the node of each set takes the camera's number.
consteval bool TakeTheCamera(std::span<const Field> slots) {
    for (const Field& slot : slots) {
        field_detail::Taking<std::uint32_t>(slot.node);
    }
    return true;
}

/// Node template of a set that each camera has. `TakeTheCamera` has checked what it takes.
ChosenTemplate NodeOf(const Field& slot) {
    return {slot.node};
}

/// The set at `offset`, in bytes from the section's start.
ValueSetView SetAt(ValueSetCfg* section, std::size_t offset) {
    return ValueSetView(std::as_writable_bytes(std::span(section, 1)).subspan(offset));
}

/// The set of row `slot`, of `camera` when each camera has one.
ValueSetView SetOf(ValueSetCfg* section, const Field& slot, std::uint32_t camera = 0) {
    return SetAt(section, slot.offset + std::size_t{camera} * slot.size);
}

/// Loads the set at the node `item`. The table of row `slot` tells the kind of its values.
Status LoadItemValues(const char* module, const char* item, const Field& slot, ValueSetView set) {
    return slot.table == &kMediaModeSetTable
               ? PDT_INIPARAM_LoadMediaModeItemValues(module, item, set)
               : PDT_INIPARAM_LoadCommItemValues(module, item, set);
}

}  // namespace

constexpr ModuleTableOf<ValueSetCfg> kValueSetTable{"valueset", kValueSetFields};
static_assert(TakeTheCamera(ROWS(kValueSetTable, payloadType, antiflicker).fields));
static_assert(TakeTheCamera(ROWS(kValueSetTable, singlePhotoFormat, lapsePhotoInterval).fields));

Status PDT_INIPARAM_LoadCamValueSetCfg(const char* module, ValueSetCfg* section) {
    REQUIRE_RECORD_OR_RETURN(section);
    for (std::uint32_t camera = 0; camera < kValueSetCamCount; ++camera) {
        for (const Field& slot : ROWS(kValueSetTable, payloadType, antiflicker).fields) {
            Key item;
            FILL_OR_RETURN(item, "sprintf_s", NodeOf(slot), camera);
            CALL_OR_RETURN(LoadItemValues(module, item.c_str(), slot, SetOf(section, slot, camera)),
                           item.c_str());
        }
    }
    return kOk;
}

Status PDT_INIPARAM_LoadDormantValueSetCfg(const char* module, const char* item, ValueSetView set) {
    CALL_OR_RETURN(PDT_INIPARAM_LoadCommItemValues(module, item, set), item);
    for (std::uint32_t k = 0; k < set.Count(); ++k) {
        const std::span<char> text = set.Description(k);
        const int textMax = static_cast<int>(text.size());
        LOG_DEBUG("desc[%.*s] time[%us] before transform\n", textMax, text.data(), set.Value(k));
        set.SetValue(k, set.Value(k) * 1000);
        LOG_DEBUG("desc[%.*s] time[%ums] after transform\n", textMax, text.data(), set.Value(k));
    }
    return kOk;
}

namespace {

/// A set for photos, and the label that is logged when its node does not fit.
struct PhotoSlot {
    const Field& slot;
    const char* notFormatted;
};

constexpr PhotoSlot kPhotoSlots[] = {
    {ROW(kValueSetTable, singlePhotoFormat), "outputformat sprintf_s"},
    {ROW(kValueSetTable, lapsePhotoInterval), "interval sprintf_s"},
};

}  // namespace

Status PDT_INIPARAM_LoadPhotoCfgValueSet(const char* module, ValueSetCfg* section) {
    REQUIRE_RECORD_OR_RETURN(section);
    constexpr const Field& kMediaModeSlot = ROW(kBurstValueSetsTable, mediaMode);
    constexpr const Field& kTypesSlot = ROW(kBurstValueSetsTable, types);
    for (std::uint32_t camera = 0; camera < kValueSetCamCount; ++camera) {
        Key item;
        for (const PhotoSlot& photo : kPhotoSlots) {
            FILL_OR_RETURN(item, photo.notFormatted, NodeOf(photo.slot), camera);
            CALL_OR_RETURN(LoadItemValues(module, item.c_str(), photo.slot,
                                          SetOf(section, photo.slot, camera)),
                           item.c_str());
        }
        const std::size_t burst =
            offsetof(ValueSetCfg, burst) + std::size_t{camera} * sizeof(BurstValueSets);
        const ValueSetView modes =
            SetAt(section, burst + kMediaModeSlot.offset).LimitedTo(kTypesSlot.count);
        FILL_OR_RETURN(item, "sprintf_s", kMediaModeSlot, camera);
        CALL_OR_RETURN(LoadItemValues(module, item.c_str(), kMediaModeSlot, modes), item.c_str());
        for (std::uint32_t t = 0; t < modes.Count(); ++t) {
            FILL_OR_RETURN(item, "sprintf_s", kTypesSlot, camera, t);
            const std::size_t type = burst + kTypesSlot.offset + std::size_t{t} * kTypesSlot.size;
            CALL_OR_RETURN(LoadItemValues(module, item.c_str(), kTypesSlot, SetAt(section, type)),
                           item.c_str());
        }
    }
    return kOk;
}

Status PDT_INIPARAM_LoadValueSetCfg(ValueSetCfg* section) {
    const char* module = kValueSetTable.module;
    REQUIRE_RECORD_OR_RETURN(section);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamValueSetCfg(module, section), "camValueSetCfg");
    const Field& dormant = ROW(kValueSetTable, dormant);
    CALL_OR_RETURN(
        PDT_INIPARAM_LoadDormantValueSetCfg(module, dormant.node, SetOf(section, dormant)),
        dormant.node);
    for (const Field& slot : ROWS(kValueSetTable, brightness, photoType).fields) {
        CALL_OR_RETURN(LoadItemValues(module, slot.node, slot, SetOf(section, slot)), slot.node);
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoCfgValueSet(module, section), "BurstValueSet");
    return kOk;
}

}  // namespace paramgen
