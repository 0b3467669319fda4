// Where the part of the link behind "#" leads: a view, a section of the report, a filter, a value.

const VIEWS = {
  report: () => {},
  modes: showComparison,
  references: showReferences,
  map: drawMap,
};

function isShown(name) {
  return !document.getElementById(name).hidden;
}

function showView(name) {
  for (const view of document.querySelectorAll(".view")) {
    view.hidden = view.id !== name;
  }
  for (const link of document.querySelectorAll("#views a")) {
    if (link.hash === `#${name}`) {
      link.setAttribute("aria-current", "page");
    } else {
      link.removeAttribute("aria-current");
    }
  }
  VIEWS[name]();
}

/** Shows a value's row, unfolded, whatever is filtered out. */
function reveal(value) {
  showView("report");
  if (!value.shown) {
    clearFilter();
  }
  layOut(value);
  unfold(value);
  markCurrent(value);
  rowLink(value).focus({preventScroll: true});
  value.row.scrollIntoView({block: "center"});
  // Tables that came into sight may be higher or lower than they were thought to be.
  requestAnimationFrame(() => value.row.scrollIntoView({block: "center"}));
}

function markCurrent(value) {
  document.querySelector("tr.current")?.classList.remove("current");
  value.row.classList.add("current");
}

function decoded(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text;
  }
}

/** Goes where the link leads. What leads nowhere shows the report. */
function follow() {
  clearTimeout(linkTimer); // The filter's link does not take this one's place.
  const target = decoded(location.hash.slice(1));
  if (target === "" || Object.hasOwn(VIEWS, target)) {
    showView(target || "report");
    if (target !== "" && target !== "report") {
      document.getElementById("views").scrollIntoView();
    }
  } else if (target.startsWith("?")) {
    showView("report");
    restoreFilter(target);
    release();
    document.getElementById("values").scrollIntoView();
  } else if (target.startsWith("map@")) {
    showView("map");
    document.getElementById("views").scrollIntoView();
    pointAndScroll(valueNamed(target.slice(3)) ?? values[0]);
    canvas.focus({preventScroll: true});
  } else if (valueNamed(target)) {
    reveal(valueNamed(target));
  } else {
    showView("report");
    release();
    const place = document.getElementById(target);
    place?.scrollIntoView();
    place?.focus({preventScroll: true});
  }
}

/** A row's link unfolds its value in place, and folds it again. */
function onRowClick(event) {
  const link = event.target.closest("th a");
  const value = link && values.find((other) => other.row === link.closest("tr"));
  if (!value || event.ctrlKey || event.metaKey || event.shiftKey) {
    return;
  }
  event.preventDefault();
  if (value.detail) {
    fold(value);
    return;
  }
  unfold(value);
  markCurrent(value);
  clearTimeout(linkTimer);
  history.pushState(null, "", `#${encodeURI(anchorOf(value))}`);
}
