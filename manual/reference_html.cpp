#include "manual/files.h"
#include "manual/reference.h"
#include "report/files.h"
#include "report/markup.h"
#include "report/policy.h"
#include "report/template.h"

namespace paramgen::manual {
namespace {

using report::EscapeFragment;
using report::EscapeHtml;

std::string Cell(const std::string& text) {
    return "<td>" + EscapeHtml(text) + "</td>";
}

std::string About(const ReferenceKey& key) {
    std::string html = "<td class=\"about\">" + EscapeHtml(key.about);
    if (!key.numbers.empty()) {
        html += (key.about.empty() ? "" : ": ") + EscapeHtml(key.numbers);
    }
    return html + "</td>";
}

std::string Row(const std::string& path, const ReferenceKey& key) {
    const std::string id = path + key.key;
    const std::string type = key.unit.empty() ? key.type : key.type + ", in " + key.unit;
    return "<tr id=\"" + EscapeHtml(id) + "\"><th scope=\"row\"><a href=\"#" +
           EscapeHtml(EscapeFragment(id)) + "\">" + EscapeHtml(key.key) + "</a></th>" + About(key) +
           Cell(type) + Cell(key.initial) + Cell(key.offset) + Cell(key.condition) + "</tr>\n";
}

constexpr char kHead[] =
    "<table><colgroup><col class=\"key\"><col class=\"about\"><col class=\"type\">"
    "<col class=\"default\"><col class=\"offset\"><col class=\"read\"></colgroup>"
    "<thead><tr><th scope=\"col\">Key</th><th scope=\"col\">What it is</th>"
    "<th scope=\"col\">Type</th><th scope=\"col\">Default</th><th scope=\"col\">Offset</th>"
    "<th scope=\"col\">Read</th></tr></thead><tbody>\n";

std::string Section(const std::string& module, const ReferenceSection& section) {
    std::string html = "<div class=\"section\"><h3>[" + EscapeHtml(section.name) + "]</h3>" + kHead;
    for (const ReferenceKey& key : section.keys) {
        html += Row(module + "/" + section.name + ":", key);
    }
    return html + "</tbody></table></div>\n";
}

std::string Title(const ReferenceModule& module) {
    return module.name.empty() ? "The entry file" : module.name;
}

/// What a module's heading is called in links.
std::string Anchor(const std::string& name) {
    return "module-" + (name.empty() ? std::string("entry") : name);
}

std::string Module(const ReferenceModule& module) {
    std::string html = "<section><h2 id=\"" + EscapeHtml(Anchor(module.name)) + "\">" +
                       EscapeHtml(Title(module)) + "</h2>\n";
    for (const ReferenceSection& section : module.sections) {
        html += Section(module.name, section);
    }
    return html + "</section>\n";
}

std::string Link(const std::string& anchor, const std::string& text) {
    return "<a href=\"#" + EscapeHtml(EscapeFragment(anchor)) + "\">" + EscapeHtml(text) + "</a>\n";
}

std::string Names(const Reference& reference) {
    std::string html = "<section><h2 id=\"names\">Names</h2>\n";
    for (const ReferenceNames& list : reference.names) {
        html += "<div class=\"section\"><h3>" + EscapeHtml(list.name) + "</h3><ul>\n";
        for (const std::string& name : list.names) {
            html += "<li><code>" + EscapeHtml(name) + "</code></li>\n";
        }
        html += "</ul></div>\n";
    }
    return html + "</section>\n";
}

}  // namespace

std::string Html(const Reference& reference, const std::string& version) {
    std::string contents;
    std::string modules;
    for (const ReferenceModule& module : reference.modules) {
        contents += Link(Anchor(module.name), Title(module));
        modules += Module(module);
    }
    contents += Link("names", "Names");
    const std::string style = std::string(report::kBaseStyle) + std::string(kReferenceStyle);
    return report::Fill(kReferenceHtml, {{"policy", report::Policy(kReferenceScript, style)},
                                         {"version", EscapeHtml(version)},
                                         {"style", style},
                                         {"contents", contents},
                                         {"modules", modules + Names(reference)},
                                         {"script", std::string(kReferenceScript)}});
}

}  // namespace paramgen::manual
