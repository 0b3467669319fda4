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

/** Whether a value has a word of the search. */
function matcherOf(word) {
  if (word.startsWith("@")) {
    const owner = valueNamed(word);
    return (value) => value === owner;
  }
  if (/[*?]/.test(word)) {
    const escaped = word.replace(/[.+^${}()|[\]\\]/g, "\\$&");
    const pattern = new RegExp(escaped.replaceAll("*", ".*").replaceAll("?", "."));
    return (value) => pattern.test(value.path.toLowerCase());
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

/** Hides what is filtered out, and headings and tables of which nothing is left. */
function showRows() {
  for (const block of blocks) {
    let rows = 0;
    for (const group of block.groups) {
      let shown = 0;
      for (const value of group.values) {
        shown += value.shown ? 1 : 0;
        setHidden(value.row, !value.shown);
        if (value.detail) {
          setHidden(value.detail, !value.shown);
        }
      }
      setHidden(group.body, shown === 0);
      rows += shown === 0 ? 0 : shown + (group.hasHeading ? 1 : 0);
    }
    setHidden(block.table, rows === 0);
    if (block.rows !== rows) {
      block.rows = rows;
      block.table.style.containIntrinsicBlockSize = `${rows * ROW_HEIGHT}px`;
    }
  }
}

/** Touches only what changes: most rows stay as they are from one letter to the next. */
function setHidden(node, hidden) {
  if (node.hidden !== hidden) {
    node.hidden = hidden;
  }
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
