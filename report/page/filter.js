// Which values are shown: those that have every word of the search, a state, and a module.

const SHOWN = {
  all: {label: "All", has: () => true},
  set: {label: "Set", has: (value) => value.state === "set"},
  default: {label: "Default", has: (value) => value.state === "default"},
  unread: {label: "Not read", has: (value) => value.state === "unread"},
  changed: {label: "Changed", has: (value) => value.changed},
  flagged: {label: "Flagged", has: (value) => value.flags !== undefined},
  findings: {label: "With findings", has: (value) => value.findings.length > 0},
  keyless: {label: "Without a key", has: (value) => !value.key},
};

const query = document.getElementById("query");
const moduleChoice = document.getElementById("module");
const status = document.getElementById("status");
const filterForm = document.getElementById("filter");

/** A row and its heading take about as much room, in pixels. */
const ROW_HEIGHT = 46;

/** What is laid out at once beyond what is in sight, in pixels. */
const MARGIN = 300;

/** How long the other tables wait, in milliseconds: longer than it takes to type the next letter. */
const RELEASE_AFTER = 200;

let releasing;

/** Whether a value has a word of the search. */
function matcherOf(word) {
  if (word.startsWith("@")) {
    const owner = valueNamed(word);
    return (value) => value === owner;
  }
  if (/[*?]/.test(word)) {
    const escaped = word.replace(/[.+^${}()|[\]\\]/g, "\\$&");
    const pattern = new RegExp(escaped.replaceAll("*", ".*").replaceAll("?", "."));
    return (value) => pattern.test(value.lowerPath);
  }
  return (value) => value.haystack.includes(word);
}

function chosenState() {
  return filterForm.elements.show.value;
}

/** Shows the values that the form asks for, and hides the others. */
function applyFilter() {
  const words = query.value.toLowerCase().split(/\s+/).filter((word) => word !== "");
  const tests = [SHOWN[chosenState()].has, ...words.map(matcherOf)];
  if (moduleChoice.value !== "") {
    tests.push((value) => value.module === moduleChoice.value);
  }
  let count = 0;
  for (const value of values) {
    value.shown = tests.every((test) => test(value));
    count += value.shown ? 1 : 0;
  }
  showRows();
  document.getElementById("nothing").hidden = count !== 0;
  status.textContent = count === values.length
    ? `${count} values` : `${count} of ${values.length} values`;
}

/**
 * Hides what is filtered out, and headings and tables of which nothing is left. Rows below something
 * hidden are left alone: most keys of a search touch a few tables only.
 */
function showRows() {
  const seen = visibleRange();
  for (const block of blocks) {
    block.rows = 0;
    for (const group of block.groups) {
      group.shown = group.values.reduce((count, value) => count + (value.shown ? 1 : 0), 0);
      block.rows += group.shown === 0 ? 0 : group.shown + (group.hasHeading ? 1 : 0);
    }
  }
  holdBack(seen);
  for (const block of blocks) {
    setHidden(block.table, block.rows === 0);
    if (block.rows !== 0) {
      block.groups.forEach(showGroup);
    }
  }
}

function showGroup(group) {
  setHidden(group.body, group.shown === 0);
  const isWhole = group.shown === group.values.length;
  if (group.shown === 0 || (isWhole && group.isWhole)) {
    return;
  }
  group.isWhole = isWhole;
  for (const {row, detail, shown} of group.values) {
    setHidden(row, !shown);
    if (detail) {
      setHidden(detail, !shown);
    }
  }
}

/** Touches only what changes. */
function setHidden(node, hidden) {
  if (node.hidden !== hidden) {
    node.hidden = hidden;
  }
}

/** The pixels of the rows' area that are in sight, counted from its top. */
function visibleRange() {
  const top = -rowsArea.getBoundingClientRect().top;
  return {from: top, to: top + innerHeight};
}

/**
 * Gives each table the room that its rows will take, and has the browser lay out those in sight
 * first. Left to itself it would lay out every table that was in sight before, however far it moves.
 */
function holdBack({from, to}) {
  const total = blocks.reduce((sum, {rows}) => sum + rows, 0) * ROW_HEIGHT;
  const shift = Math.max(0, to - total); // a page that gets shorter than that moves
  let top = 0;
  for (const block of blocks) {
    const height = block.rows * ROW_HEIGHT;
    const isNear = top < to - shift + MARGIN && top + height > from - shift - MARGIN;
    top += height;
    if (block.height !== height && height !== 0) {
      block.height = height;
      block.table.style.containIntrinsicBlockSize = `${height}px`;
    }
    block.table.classList.toggle("later", !isNear);
  }
  clearTimeout(releasing);
  releasing = setTimeout(release, RELEASE_AFTER);
}

/** Leaves it to the browser again what it lays out: nothing else can be focused or scrolled to. */
function release() {
  clearTimeout(releasing);
  for (const table of rowsArea.querySelectorAll(".later")) {
    table.classList.remove("later");
  }
}

/** Has the browser lay out the table of a value that is gone to, wherever it is. */
function layOut(value) {
  release();
  rowsArea.querySelector(".sought")?.classList.remove("sought");
  const block = value.row.closest(".block");
  block.classList.add("sought");
  block.getBoundingClientRect(); // from here on the style counts
}

function isFiltered() {
  return query.value !== "" || moduleChoice.value !== "" || chosenState() !== "all";
}

function clearFilter() {
  filterForm.reset();
  applyFilter();
}

/** The filter as the part of a link behind "#", and back. */
function filterLink() {
  const parameters = new URLSearchParams();
  const given = {q: query.value, module: moduleChoice.value, show: chosenState()};
  for (const [name, value] of Object.entries(given)) {
    if (value !== "" && value !== "all") {
      parameters.set(name, value);
    }
  }
  return `?${parameters}`;
}

function restoreFilter(link) {
  const parameters = new URLSearchParams(link.slice(1));
  query.value = parameters.get("q") ?? "";
  moduleChoice.value = parameters.get("module") ?? "";
  if (moduleChoice.selectedIndex < 0) {
    moduleChoice.value = "";
  }
  const show = parameters.get("show") ?? "all";
  const choice = [...filterForm.querySelectorAll("[name=show]")].find((radio) => radio.value === show);
  (choice ?? filterForm.querySelector("[name=show]")).checked = true;
  applyFilter();
}

/** Fills the form with the states and modules that there are. */
function makeFilterForm() {
  const states = document.getElementById("show");
  for (const [name, {label, has}] of Object.entries(SHOWN)) {
    const count = values.filter(has).length;
    if (count > 0) {
      const radio = element("input", {type: "radio", name: "show", value: name});
      radio.defaultChecked = name === "all";
      states.append(element("label", {}, radio,
        element("span", {}, label, " ", element("b", {}, String(count)))));
    }
  }
  for (const name of new Set(values.map((value) => value.module))) {
    if (name !== "") {
      moduleChoice.append(element("option", {value: name}, name));
    }
  }
}
