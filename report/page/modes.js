// Records of one kind side by side.

const comparisonChoice = document.getElementById("comparison");
const onlyDifferences = document.getElementById("only-differences");
const modesQuery = document.getElementById("modes-query");

/** The values below each column's record, by the rest of their members' names. */
function comparedRows({columns}) {
  const rows = new Map();
  columns.forEach(({member}, column) => {
    for (const value of values) {
      if (value.member.startsWith(member)) {
        const rest = value.member.slice(member.length);
        if (!rows.has(rest)) {
          rows.set(rest, {rest, cells: new Array(columns.length)});
        }
        rows.get(rest).cells[column] = value;
      }
    }
  });
  return [...rows.values()];
}

function differs({cells}) {
  return new Set(cells.map((value) => value ? `${value.value}\n${value.name}` : "")).size > 1;
}

function headRow(titles) {
  return element("thead", {}, element("tr", {},
    ...titles.map((title) => element("th", {scope: "col"}, title))));
}

function comparedRow(row) {
  const first = row.cells.find((value) => value);
  const label = element("th", {scope: "row"}, row.rest);
  if (first.about) {
    label.append(element("small", {}, first.about));
  }
  const common = mostCommon(row.cells.map((value) => value?.value));
  return element("tr", {}, label, ...row.cells.map((value) => {
    if (!value) {
      return element("td");
    }
    const other = value.value !== common;
    return element("td", {class: `${value.state}${other ? " other" : ""}`},
      linkTo(value, value.value === "" ? "(empty)" : value.value),
      value.name ? element("span", {class: "name"}, ...breakable(value.name)) : "");
  }));
}

/** A name that may be broken behind its underscores, as narrow columns need. */
function breakable(name) {
  return name.split("_").flatMap((part, index) => index ? ["_", element("wbr"), part] : [part]);
}

function mostCommon(texts) {
  const counts = new Map();
  for (const text of texts) {
    counts.set(text, (counts.get(text) ?? 0) + 1);
  }
  return [...counts].reduce((best, next) => next[1] > best[1] ? next : best)[0];
}

function showComparison() {
  const comparison = page.comparisons[Number(comparisonChoice.value)];
  const words = modesQuery.value.toLowerCase().split(/\s+/);
  const all = comparedRows(comparison);
  const rows = all.filter((row) => {
    const haystack = row.cells.map((value) => value?.haystack ?? "").join("\n");
    return (!onlyDifferences.checked || differs(row)) && words.every((word) => haystack.includes(word));
  });
  const table = element("table", {class: "beside"},
    headRow(["Member", ...comparison.columns.map(({title}) => title)]),
    element("tbody", {}, ...rows.map(comparedRow)));
  document.getElementById("modes-table").replaceChildren(table);
  document.getElementById("modes-status").textContent = `${rows.length} of ${all.length} members`;
}

function makeModes() {
  page.comparisons.forEach(({title}, index) => {
    comparisonChoice.append(element("option", {value: String(index)}, title));
  });
  for (const control of [comparisonChoice, onlyDifferences, modesQuery]) {
    control.addEventListener("input", showComparison);
    control.addEventListener("change", showComparison);
  }
}
