// The loaders while formatting a node, a module's name or a key fails.

#include "fault/param/formatting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "confaccess/confaccess.h"
#include "generator/image.h"
#include "log/console_log.h"
#include "support/captured_output.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

/// A section: the name of its loader, and a call of it.
struct Section {
    const char* name;
    std::function<Status()> load;
};

const std::vector<Section>& Sections() {
    static const std::vector<Section> sections = {
        {"PDT_INIPARAM_LoadFileMngConf",
         [] { return PDT_INIPARAM_LoadFileMngConf(&g_image.fileMng); }},
        {"PDT_INIPARAM_LoadMediaCommConf",
         [] { return PDT_INIPARAM_LoadMediaCommConf(&g_image.mediaComm); }},
        {"PDT_INIPARAM_LoadWorkModeConf",
         [] { return PDT_INIPARAM_LoadWorkModeConf(&g_image.workMode); }},
        {"PDT_INIPARAM_LoadValueSetCfg",
         [] { return PDT_INIPARAM_LoadValueSetCfg(&g_image.valueSet); }},
        {"PDT_INIPARAM_LoadCamMediaCfg",
         [] { return PDT_INIPARAM_LoadCamMediaCfg(g_image.cam, kCamCount); }},
    };
    return sections;
}

/// Result of loading a section.
struct Loaded {
    Status status;
    std::vector<std::string> echo;
    std::vector<std::string> errors;
};

/// Loads a section into a fresh image. Formatting fails for texts for which `fits` returns false.
Loaded Load(const Section& section, std::function<bool(const Formatted&)> fits) {
    BuildFrame(&g_image);
    Loaded loaded = {};
    const std::string output = CaptureStdout([&] {
        WatchFormatting(std::move(fits));
        loaded.status = section.load();
        WatchFormatting({});
    });
    loaded.echo = EchoOf(output);
    loaded.errors = ErrorsOf(output);
    return loaded;
}

/// The example product, registered, with only one media mode and its calibration.
class Formatting : public ::testing::Test {
protected:
    Formatting() {
        std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory_.path(),
                              std::filesystem::copy_options::recursive);
        for (const char* file :
             {"mode1_1440p_30_wdr", "mode2_1080p_60", "mode3_1080p_30", "mode4_photo_2160p"}) {
            EXPECT_TRUE(std::filesystem::remove(directory_.path() / "camera" / "mediamode" /
                                                (file + std::string(".ini"))));
        }
        ConsoleLogSetup(1, 0, kConsoleDebug);
        const WorkingDirectory here(directory_.path());
        CaptureStdout(
            [] { EXPECT_EQ(ZV_CONFACCESS_Init("productini", "./config_cfgaccess_entry.ini"), 0); });
    }
    ~Formatting() override { EXPECT_EQ(ZV_CONFACCESS_Deinit("productini"), 0); }

private:
    TempDir directory_;
};

/// Whether a text is a node or a module's name. Full keys contain a ':', and other keys are not
/// formatted.
bool IsNode(const Formatted& formatted) {
    return formatted.format.find('%') != std::string::npos &&
           formatted.text.find(':') == std::string::npos;
}

/// Chooses the texts that are tried: of each format the first three, and every 60th.
class Choice {
public:
    bool Takes(const Formatted& formatted) {
        const int times = ++times_[formatted.format];
        const bool isPutTogether = formatted.format.find('%') != std::string::npos;
        return isPutTogether && (times <= 3 || times % 60 == 0);
    }

private:
    std::map<std::string, int> times_;
};

/// The numbers of the chosen texts, in the order of formatting, from 1 on.
std::vector<int> TriedTexts(const Section& section) {
    std::vector<int> tried;
    Choice choice;
    int number = 0;
    const Loaded loaded = Load(section, [&](const Formatted& formatted) {
        ++number;
        if (choice.Takes(formatted)) {
            tried.push_back(number);
        }
        return true;
    });
    EXPECT_EQ(loaded.status, 0);
    return tried;
}

/// Whether the record has one of the labels for a text that could not be formatted.
bool IsFormattingError(const std::string& error) {
    static const std::set<std::string> labels = {"sprintf_s",
                                                 "snprintf_s",
                                                 "ret = ret = sprintf_s",
                                                 "photosource sprintf_s",
                                                 "singlephoto sprintf_s",
                                                 "lapsephoto sprintf_s",
                                                 "burstphoto sprintf_s",
                                                 "outputformat sprintf_s",
                                                 "interval sprintf_s"};
    const std::size_t start = error.find('[') + 1;
    const std::size_t end = error.find("] failed\n");
    return start != 0 && end != std::string::npos &&
           labels.count(error.substr(start, end - start)) != 0;
}

/// Expects the chain of records when formatting fails: the failing step's first, then -1 at every
/// level up to the section's loader.
void ExpectChain(const Section& section, const std::vector<std::string>& errors) {
    ASSERT_FALSE(errors.empty());
    EXPECT_TRUE(IsFormattingError(errors[0])) << errors[0];
    for (std::size_t i = 1; i < errors.size(); ++i) {
        EXPECT_NE(errors[i].find("] failed[0xFFFFFFFF]\n"), std::string::npos) << errors[i];
    }
    EXPECT_EQ(errors.back().rfind(std::string(section.name) + ": ", 0), 0U) << errors.back();
}

TEST_F(Formatting, FailureStopsASectionWithItsChain) {
    int failed = 0;
    for (const Section& section : Sections()) {
        const Loaded whole = Load(section, {});
        for (const int tried : TriedTexts(section)) {
            int number = 0;
            Formatted lost;
            const Loaded loaded = Load(section, [&](const Formatted& formatted) {
                lost = ++number == tried ? formatted : lost;
                return number != tried;
            });
            SCOPED_TRACE(lost.text);
            std::vector<std::string> before = whole.echo;
            if (loaded.status == 0) {  // the text was only needed as a label
                EXPECT_FALSE(IsNode(lost));
            } else {
                EXPECT_EQ(loaded.status, -1);
                ExpectChain(section, loaded.errors);
                before.resize(std::min(loaded.echo.size(), before.size()));
                ++failed;
            }
            EXPECT_EQ(loaded.echo, before);
        }
    }
    std::printf("%d texts that could not be formatted\n", failed);
    EXPECT_GT(failed, 150);
}

/// A text whose formatting fails the `time`th time, and the first two errors that follow.
struct LostNode {
    const char* text;
    int time;
    const char* first;
    const char* second;
};

void PrintTo(const LostNode& lost, std::ostream* out) {
    *out << lost.text << " " << lost.time;
}

class LostNodes : public Formatting, public ::testing::WithParamInterface<LostNode> {};

TEST_P(LostNodes, AreNamedByWhoeverWantedThem) {
    for (const Section& section : Sections()) {
        int times = 0;
        const Loaded loaded = Load(section, [&](const Formatted& formatted) {
            return formatted.text != GetParam().text || ++times != GetParam().time;
        });
        if (loaded.status != 0) {
            ASSERT_GE(loaded.errors.size(), 2U);
            EXPECT_EQ(loaded.errors[0], std::string("PDT_") + GetParam().first + "\n");
            EXPECT_EQ(loaded.errors[1],
                      std::string("PDT_") + GetParam().second + " failed[0xFFFFFFFF]\n");
            return;
        }
    }
    FAIL() << "nobody wanted it";
}

INSTANTIATE_TEST_SUITE_P(
    Media, LostNodes,
    ::testing::Values(
        LostNode{"venc.video.sub", 1, "INIPARAM_LoadMediaCommVideoEncAttr: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommVencCommConf: [SubVideoEnc]"},
        LostNode{"venc.video.main.h265", 1,
                 "INIPARAM_LoadMediaCommVencH265Attr: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommVideoEncAttr: [H265Attr]"},
        LostNode{"venc.video.main.h265.qvbr", 1,
                 "INIPARAM_LoadMediaCommH26xQvbrAttr: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommVencH265Attr: [H265VBRAttr]"},
        LostNode{"venc.snap.single", 1, "INIPARAM_LoadMediaCommSnapEncAttr: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommVencCommConf: [SingSnapAttr]"},
        LostNode{"venc.hierarchical.qp", 1,
                 "INIPARAM_LoadMediaCommVencHierarchicalQp: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommVencCommConf: [HierarchicalQp]"},
        LostNode{"disp.0", 1, "INIPARAM_LoadMediaCommDispCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommConf: [Vdisp]"},
        LostNode{"disp.0.SRC.0", 1, "INIPARAM_LoadMediaCommDispCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommConf: [Vdisp]"},
        LostNode{"disp.0.playbackwindow.0.aspectratio", 1,
                 "INIPARAM_LoadMediaCommDispWndCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommDispCfg: [playback WndCfg]"},
        LostNode{"acapture.0", 1, "INIPARAM_LoadMediaCommAcapCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommConf: [Acap]"},
        LostNode{"aenc.0.aac", 1, "INIPARAM_LoadMediaCommAencCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommConf: [Aenc]"},
        LostNode{"aenc.0.aac", 2, "INIPARAM_LoadMediaCommAencAacCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommAencCfg: [Aenc AAC]"},
        LostNode{"ao.0", 1, "INIPARAM_LoadMediaCommAoCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaCommConf: [Ao]"}));

INSTANTIATE_TEST_SUITE_P(
    WorkMode, LostNodes,
    ::testing::Values(
        LostNode{"common.mediamode.config.0", 1,
                 "INIPARAM_LoadPhotoWorkModeCfg: [ret = ret = sprintf_s] failed",
                 "INIPARAM_LoadWorkModeConf: [PhotoMedia]"},
        LostNode{"common.mediamode.config.0", 2, "INIPARAM_LoadRecMediaCfg: [sprintf_s] failed",
                 "INIPARAM_LoadRecWorkModeConf: [RecMedia]"},
        LostNode{"photosource.0", 1, "INIPARAM_LoadPhotoCfg: [photosource sprintf_s] failed",
                 "INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg]"},
        LostNode{"phototype.0", 1, "INIPARAM_LoadPhotoCfg: [sprintf_s] failed",
                 "INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg]"},
        LostNode{"phototype.0.single", 1, "INIPARAM_LoadPhotoCfg: [singlephoto sprintf_s] failed",
                 "INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg]"},
        LostNode{"phototype.0.lapse", 1, "INIPARAM_LoadPhotoCfg: [lapsephoto sprintf_s] failed",
                 "INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg]"},
        LostNode{"phototype.0.burst", 1, "INIPARAM_LoadPhotoCfg: [burstphoto sprintf_s] failed",
                 "INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg]"},
        LostNode{"osd", 1, "INIPARAM_LoadPhotoWorkModeCfg: [ret = ret = sprintf_s] failed",
                 "INIPARAM_LoadWorkModeConf: [PhotoMedia]"},
        LostNode{"photosource.0", 2, "INIPARAM_LoadRecWorkModeConf: [sprintf_s] failed",
                 "INIPARAM_LoadWorkModeConf: [PLAYBACK]"},
        LostNode{"normal.0", 1, "INIPARAM_LoadRecWorkModeConf: [sprintf_s] failed",
                 "INIPARAM_LoadWorkModeConf: [PLAYBACK]"}));

INSTANTIATE_TEST_SUITE_P(
    ValueSets, LostNodes,
    ::testing::Values(
        LostNode{"cam.0.enc.payloadtype", 1, "INIPARAM_LoadCamValueSetCfg: [sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [camValueSetCfg]"},
        LostNode{"cam.0.antiflicker.mode", 1, "INIPARAM_LoadCamValueSetCfg: [sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [camValueSetCfg]"},
        LostNode{"cam.0.singlephoto.outputformat", 1,
                 "INIPARAM_LoadPhotoCfgValueSet: [outputformat sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [BurstValueSet]"},
        LostNode{"cam.0.lapsephoto.interval", 1,
                 "INIPARAM_LoadPhotoCfgValueSet: [interval sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [BurstValueSet]"},
        LostNode{"cam.0.burst.mediamode", 1, "INIPARAM_LoadPhotoCfgValueSet: [sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [BurstValueSet]"},
        LostNode{"cam.0.burst.type0", 1, "INIPARAM_LoadPhotoCfgValueSet: [sprintf_s] failed",
                 "INIPARAM_LoadValueSetCfg: [BurstValueSet]"}));

INSTANTIATE_TEST_SUITE_P(
    Camera, LostNodes,
    ::testing::Values(
        LostNode{"vcap.pipe.0", 1, "INIPARAM_LoadCamVcapPipeCommCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapCommCfg: [VcapPipeComm]"},
        LostNode{"vcap.pipe.0", 4, "INIPARAM_LoadCamVcapPipeSpecCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec]"},
        LostNode{"vcap.pipe.0", 5, "INIPARAM_LoadCamVcapPipeFrameRateCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapPipeSpecCfg: [framerate]"},
        LostNode{"vcap.pipe.0", 6, "INIPARAM_LoadCamVcapSingleValue: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapPipeSpecCfg: [Vcap Single value]"},
        LostNode{"vcap.pipe.0.chl.0", 1, "INIPARAM_LoadCamVcapPipeChnSpecCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapPipeSpecCfg: [VcapPipeChnSpec]"},
        LostNode{
            "vcap.pipe.0.chn.0", 1, "INIPARAM_LoadVcapPipeChnCommCfgPartOne: [sprintf_s] failed",
            "INIPARAM_LoadCamVcapPipeChnCommCfg: [PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne]"},
        LostNode{
            "vcap.pipe.0.chn.0", 2, "INIPARAM_LoadVcapPipeChnCommCfgPartTwo: [sprintf_s] failed",
            "INIPARAM_LoadCamVcapPipeChnCommCfg: [PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo]"},
        LostNode{"venc.0", 1, "INIPARAM_LoadCamVencCommAttr: [sprintf_s] failed",
                 "INIPARAM_LoadCamVencCommCfg: [venc comm]"},
        LostNode{"venc.0", 2, "PARAM_LoadCamVencBindSrcAttr: [sprintf_s] failed",
                 "INIPARAM_LoadCamVencCommAttr: [bindSrc]"},
        LostNode{"venc.0", 7, "INIPARAM_LoadCamVencSpecAttr: [sprintf_s] failed",
                 "INIPARAM_LoadCamVencSpecCfg: [venc spec]"},
        LostNode{"vb.pool.0", 1, "INIPARAM_LoadCamVBSpecCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaModeSpecCfg: [VB config]"},
        LostNode{"vpss.0", 3, "INIPARAM_LoadCamVprocNrAttr: [sprintf_s] failed",
                 "INIPARAM_LoadCamVprocCommArg: [VprocNrAttr]"},
        LostNode{"vpss.0", 10, "INIPARAM_LoadCamVpssSpecAttr: [sprintf_s] failed",
                 "INIPARAM_LoadMediaModeSpecCfg: [vproc config]"},
        LostNode{"vpss.0.vport.0", 2, "INIPARAM_LoadCamVportLowDelayInfo: [sprintf_s] failed",
                 "INIPARAM_LoadCamVportCommCfg: [lowdelayinfo]"},
        LostNode{"vpss.0.vport.0", 7, "INIPARAM_LoadCamVpssSpecAttr: [snprintf_s] failed",
                 "INIPARAM_LoadMediaModeSpecCfg: [vproc config]"},
        LostNode{"vpss.0.extvport.0", 4, "INIPARAM_LoadCamVpssSpecAttr: [snprintf_s] failed",
                 "INIPARAM_LoadMediaModeSpecCfg: [vproc config]"},
        LostNode{"vpss.0", 1, "INIPARAM_LoadCamVprocCommCfg: [sprintf_s] failed",
                 "INIPARAM_LoadMediaModeCommCfg: [vproc comm]"},
        LostNode{"vpss.0", 2, "INIPARAM_LoadCamVprocCommArg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVprocCommCfg: [VprocCommArg]"},
        LostNode{"LDCV1Attr", 1, "INIPARAM_LoadLDCV1Attr: [sprintf_s] failed",
                 "INITPARAM_LoadVcapLDCAttr: [cam0_ldccfg_0]"},
        LostNode{"LDCV3Attr", 1, "INIPARAM_LoadLDCV3Attr: [sprintf_s] failed",
                 "INITPARAM_LoadVcapLDCAttr: [cam0_ldccfg_0]"},
        LostNode{"common:mediamode", 1, "INIPARAM_LoadMediaModeSpecCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamMediaCfg: [cam0_mediamode0]"},
        LostNode{"common:mediamode", 2,
                 "INITPARAM_LoadCorrespondingVcapLDCAttr: [sprintf_s] failed",
                 "INIPARAM_LoadCamVcapPipeChnSpecCfg: [LDC total attr]"},
        LostNode{"common:mediamode", 6, "INIPARAM_LoadCamVportSpecLDCCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVpssSpecAttr: [ldcV1 ldcV3 CFG]"},
        LostNode{"vpss.0.vport.2", 1, "INIPARAM_LoadCamVportCommCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVprocCommCfg: [vport config]"},
        LostNode{"vpss.0.extvport.1", 1, "INIPARAM_LoadExtVportCommCfg: [snprintf_s] failed",
                 "INIPARAM_LoadCamVprocCommCfg: [extport config]"},
        LostNode{"venc.0.intraRefresh", 1, "INIPARAM_LoadVencChnIntraFreshCfg: [sprintf_s] failed",
                 "INIPARAM_LoadCamVencCommAttr: [intraRefresh]"}));

}  // namespace
}  // namespace paramgen::testing
