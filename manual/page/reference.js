"use strict";

// Shows the rows that have every word of the search, and hides sections and modules without any.

const query = document.getElementById("query");
const status = document.getElementById("status");

const modules = [...document.querySelectorAll("main > section")].map((module) => ({
  node: module,
  sections: [...module.querySelectorAll(".section")].map((section) => ({
    node: section,
    rows: [...section.querySelectorAll("tbody tr, li")].map((row) => ({
      node: row,
      haystack: `${row.id}\n${row.textContent}`.toLowerCase(),
    })),
  })),
}));

function setHidden(node, hidden) {
  if (node.hidden !== hidden) {
    node.hidden = hidden;
  }
}

function applyFilter() {
  const words = query.value.toLowerCase().split(/\s+/);
  let count = 0;
  for (const module of modules) {
    let inModule = 0;
    for (const section of module.sections) {
      let inSection = 0;
      for (const row of section.rows) {
        const shown = words.every((word) => row.haystack.includes(word));
        setHidden(row.node, !shown);
        inSection += shown ? 1 : 0;
      }
      setHidden(section.node, inSection === 0);
      inModule += inSection;
    }
    setHidden(module.node, inModule === 0);
    count += inModule;
  }
  status.textContent = `${count} ${count === 1 ? "row" : "rows"}`;
}

/** A link to a row that is filtered out clears the search. */
function follow() {
  const row = document.getElementById(decodeURIComponent(location.hash.slice(1)));
  if (row?.closest("[hidden]")) {
    query.value = "";
    applyFilter();
  }
  row?.scrollIntoView({block: "center"});
}

document.getElementById("filter").hidden = false;
document.getElementById("filter").addEventListener("submit", (event) => event.preventDefault());
query.addEventListener("input", applyFilter);
document.addEventListener("keydown", (event) => {
  if (event.key === "/" && event.target !== query) {
    query.focus();
    event.preventDefault();
  } else if (event.key === "Escape" && event.target === query) {
    query.value = "";
    applyFilter();
  }
});
addEventListener("hashchange", follow);
applyFilter();
if (location.hash !== "") {
  follow();
}
