// Sets the page up, and listens.

let linkTimer;
let filtering;

/**
 * Filters before the next frame, once for all keys that came before it. The filter becomes part of
 * the link once nothing was typed for a while.
 */
function onFilter() {
  cancelAnimationFrame(filtering);
  filtering = requestAnimationFrame(applyFilter);
  clearTimeout(linkTimer);
  linkTimer = setTimeout(() => history.replaceState(null, "", `#${filterLink()}`), 400);
}

function focusRow(value) {
  if (value) {
    layOut(value);
    const link = rowLink(value);
    link.focus();
    link.scrollIntoView({block: "nearest"});
  }
}

function onRowKey(event) {
  const value = values.find((other) => other.row === event.target.closest("tr"));
  if (!value) {
    return;
  }
  const steps = {ArrowDown: 1, ArrowUp: -1, PageDown: 15, PageUp: -15};
  if (Object.hasOwn(steps, event.key)) {
    focusRow(neighbour(value, steps[event.key]));
  } else if (event.key === "m") {
    location.hash = `map@${value.offset}`;
  } else if (event.key === "Escape") {
    query.focus();
  } else {
    return;
  }
  event.preventDefault();
}

function onQueryKey(event) {
  if (event.key === "ArrowDown") {
    focusRow(neighbour(undefined, 0));
  } else if (event.key === "Escape") {
    query.value = "";
    onFilter();
  } else {
    return;
  }
  event.preventDefault();
}

/** "/" searches from wherever nothing is typed. */
function onPageKey(event) {
  const isTyping = event.target.closest("input:not([type=radio], [type=checkbox]), select, textarea");
  if (event.key === "/" && !isTyping && !event.ctrlKey && !event.metaKey && !event.altKey) {
    if (!isShown("report")) {
      showView("report");
    }
    query.focus();
    query.select();
    event.preventDefault();
  }
}

/** What only works with a script is hidden until there is one. */
function showControls() {
  document.documentElement.classList.add("scripted");
  for (const id of ["views", "tools"]) {
    document.getElementById(id).hidden = false;
  }
  document.querySelector("#views [href='#modes']").hidden = page.comparisons.length === 0;
}

function listen() {
  filterForm.addEventListener("input", onFilter);
  moduleChoice.addEventListener("change", onFilter);
  filterForm.addEventListener("submit", (event) => event.preventDefault());
  for (const button of document.querySelectorAll(".clear")) {
    button.addEventListener("click", () => {
      clearFilter();
      onFilter();
      query.focus();
    });
  }
  for (const form of document.querySelectorAll(".controls")) {
    form.addEventListener("submit", (event) => event.preventDefault());
  }
  query.addEventListener("keydown", onQueryKey);
  rowsArea.addEventListener("keydown", onRowKey);
  rowsArea.addEventListener("click", onRowClick);
  document.addEventListener("keydown", onPageKey);
  addEventListener("hashchange", follow);
}

makeFilterForm();
makeOrderBar();
makeModes();
makeReferences();
makeMap();
showControls();
applyFilter();
listen();
follow();
