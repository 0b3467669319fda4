// The values that name others, by what they name them for.

const referencesQuery = document.getElementById("references-query");

/** `{reason, from, to}` for each of them, in the order of the image. */
const references = values.flatMap((from) => (from.refersTo ?? []).map(({text, offset}) =>
  ({reason: text, from, to: valueAt(offset)})));

function referenceRow({from, to}) {
  return element("tr", {},
    element("th", {scope: "row"}, linkTo(from)), element("td", {}, valueText(from)),
    element("td", {}, linkTo(to)), element("td", {}, to.about));
}

/** The rows of one reason, below a heading that says it. */
function referenceGroup(reason, ofReason) {
  const heading = element("th", {colspan: "4", scope: "rowgroup"},
    reason[0].toUpperCase() + reason.slice(1), " ", element("span", {class: "count"}, ofReason.length));
  return element("tbody", {}, element("tr", {class: "heading"}, heading), ...ofReason.map(referenceRow));
}

function showReferences() {
  const words = referencesQuery.value.toLowerCase().split(/\s+/);
  const shown = references.filter(({reason, from, to}) => words.every((word) =>
    `${reason}\n${from.haystack}\n${to.haystack}`.toLowerCase().includes(word)));
  const groups = new Map();
  for (const reference of shown) {
    groups.set(reference.reason, [...(groups.get(reference.reason) ?? []), reference]);
  }
  document.getElementById("references-status").textContent =
    `${shown.length} of ${references.length} references`;
  document.getElementById("references-table").replaceChildren(shown.length === 0
    ? element("p", {}, references.length === 0 ? "No value of this image names another." : "No reference matches.")
    : element("table", {}, headRow(["Value", "Is", "Names", "Which is"]),
      ...[...groups].map(([reason, ofReason]) => referenceGroup(reason, ofReason))));
}

function makeReferences() {
  referencesQuery.addEventListener("input", showReferences);
}
