"use strict";

// The values as the data script has them, each with its row in the tables, and ways to find one.

const page = JSON.parse(document.getElementById("data").textContent);

const SHARED = ["part", "module", "section", "type", "about", "unit", "numbers", "condition"];

/** Makes an element. Children are elements or texts; nothing is ever read as markup. */
function element(name, attributes = {}, ...children) {
  const made = document.createElement(name);
  for (const [attribute, value] of Object.entries(attributes)) {
    made.setAttribute(attribute, value);
  }
  made.append(...children);
  return made;
}

function readValues() {
  const rows = document.querySelectorAll("#rows tbody tr:not(.heading)");
  page.values.forEach((value, index) => {
    for (const member of SHARED) {
      value[member] = value[member] === undefined ? "" : page.texts[value[member]];
    }
    for (const member of ["member", "key", "value", "name", "initial"]) {
      value[member] ??= "";
    }
    value.index = index;
    value.row = rows[index];
    value.path = value.key ? `${value.module}/${value.section}:${value.key}` : "";
    value.lowerPath = value.path.toLowerCase();
    value.title = value.path || value.member;
    value.findings = [];
    value.haystack = [value.path, value.member, value.value, value.name, value.about, value.unit,
      value.numbers, value.place].join("\n").toLowerCase();
  });
  return page.values;
}

const values = readValues();

/** The places that each key feeds, by the key in lower case. */
const places = Map.groupBy ? Map.groupBy(values, (value) => value.lowerPath) : groupByPath();

function groupByPath() {
  const groups = new Map();
  for (const value of values) {
    groups.set(value.lowerPath, [...(groups.get(value.lowerPath) ?? []), value]);
  }
  return groups;
}

/** The value that owns the byte at `offset`. */
function valueAt(offset) {
  let low = 0;
  let high = values.length - 1;
  while (low < high) {
    const middle = (low + high + 1) >> 1;
    if (values[middle].offset <= offset) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  const found = values[low];
  return offset >= found.offset && offset < found.offset + found.size ? found : undefined;
}

/** The value that `@OFFSET`, `module/section:key`, `section:key` or `key` leads to. */
function valueNamed(text) {
  if (text.startsWith("@")) {
    return /^@(\d+|0x[\da-f]+)$/i.test(text) ? valueAt(Number(text.slice(1))) : undefined;
  }
  const path = text.toLowerCase();
  return places.get(path)?.[0] ??
    values.find((value) => value.path && isTail(value.lowerPath, path));
}

function isTail(path, tail) {
  return tail !== "" && path.endsWith(tail) && "/:".includes(path.at(-tail.length - 1));
}

/** What leads to a value, behind "#". */
function anchorOf(value) {
  return value.path && places.get(value.lowerPath)[0] === value ? value.path : `@${value.offset}`;
}

function linkTo(value, text = value.title) {
  return element("a", {href: `#${encodeURI(anchorOf(value))}`}, text);
}

page.findings.forEach((finding, index) => {
  for (const offset of finding.offsets) {
    valueAt(offset)?.findings.push({...finding, index});
  }
});
