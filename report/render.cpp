#include <map>
#include <string>

#include "report/files.h"
#include "report/markup.h"
#include "report/page.h"
#include "report/page_data.h"
#include "report/policy.h"
#include "report/sections.h"
#include "report/template.h"

namespace paramgen::report {
namespace {

std::string Title(const Page& page) {
    const std::string name = page.model.empty() ? page.input : page.model;
    return page.version.empty() ? name : name + " " + page.version;
}

}  // namespace

std::string Render(const Page& page) {
    return Fill(kPageHtml, {{"policy", Policy(kPageScript, kPageStyle)},
                            {"title", EscapeHtml(Title(page))},
                            {"style", std::string(kPageStyle)},
                            {"model", EscapeHtml(page.model.empty() ? page.input : page.model)},
                            {"identity", Identity(page)},
                            {"figures", Figures(page)},
                            {"findings", Findings(page)},
                            {"changes", Changes(page)},
                            {"values", Values(page)},
                            {"tool", EscapeHtml(page.tool)},
                            {"data", EscapeScript(Data(page))},
                            {"script", std::string(kPageScript)}});
}

}  // namespace paramgen::report
