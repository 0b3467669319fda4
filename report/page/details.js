// What a value unfolds to.

function valueText(value) {
  return [value.value, value.unit, value.name].filter((text) => text !== "").join(" ");
}

function listOf(items) {
  return element("ul", {}, ...items.map((item) => element("li", {}, ...item)));
}

/** The other values, together where they are named for the same reason. */
function referenceItems(named) {
  const reasons = new Map();
  for (const {text, offset} of named) {
    reasons.set(text, [...(reasons.get(text) ?? [`${text}: `]), linkTo(valueAt(offset)), ", "]);
  }
  return [...reasons.values()].map((parts) => parts.slice(0, -1));
}

function findingItems(value) {
  return value.findings.map(({severity, message, index}) =>
    [`${severity}: `, element("a", {href: `#finding-${index}`}, message)]);
}

function offsetText({offset, size}) {
  const hexadecimal = `0x${offset.toString(16)}`;
  return `${offset} (${hexadecimal}), ${size} ${size === 1 ? "byte" : "bytes"}`;
}

/** Pairs of bytes stand together, so that long texts wrap. */
function spaced(raw) {
  return raw.replace(/(.{8})(?=.)/g, "$1 ");
}

/** What there is to say about a value: `[term, text or element]`. */
function factsOf(value) {
  const others = value.path ? places.get(value.lowerPath).filter((other) => other !== value) : [];
  const facts = [
    ["Description", value.about],
    ["Unit", value.unit],
    ["Numbers", value.numbers],
    ["Key", value.path],
    ["Set at", value.place],
    ["Text given", value.given],
    ["Stored", valueText(value)],
    ["Before", value.changed ? [value.old, value.oldName].filter(Boolean).join(" ") : ""],
    ["Set before at", value.oldPlace],
    ["Default", value.initial],
    ["Read", value.condition],
    ["Member", value.member],
    ["Type", value.type],
    ["Offset", offsetText(value)],
    ["Bytes", spaced(value.raw ?? "")],
    ["Flags", (value.flags ?? []).join("; ")],
    ["Also feeds", others.length ? listOf(others.map((other) => [linkTo(other, other.member)])) : ""],
    ["Refers to", value.refersTo ? listOf(referenceItems(value.refersTo)) : ""],
    ["Referred to by", value.referredBy ? listOf(referenceItems(value.referredBy)) : ""],
    ["Findings", value.findings.length ? listOf(findingItems(value)) : ""],
  ];
  return facts.filter(([, fact]) => fact !== undefined && fact !== "");
}

function detailOf(value) {
  const list = element("dl", {class: "facts"});
  for (const [term, fact] of factsOf(value)) {
    list.append(element("div", {}, element("dt", {}, term), element("dd", {}, fact)));
  }
  const toMap = element("a", {href: `#map@${value.offset}`}, "Show on the map");
  const link = element("a", {href: `#${encodeURI(anchorOf(value))}`}, "Link to this value");
  const ways = element("p", {class: "ways"}, toMap, link);
  const cell = element("td", {colspan: String(value.row.cells.length)}, list, ways);
  return element("tr", {class: "detail"}, cell);
}

function unfold(value) {
  if (!value.detail) {
    value.detail = detailOf(value);
    value.row.after(value.detail);
    value.row.classList.add("unfolded");
    rowLink(value).setAttribute("aria-expanded", "true");
  }
}

function fold(value) {
  value.detail?.remove();
  value.detail = undefined;
  value.row.classList.remove("unfolded");
  rowLink(value).setAttribute("aria-expanded", "false");
}

function rowLink(value) {
  return value.row.querySelector("a");
}
