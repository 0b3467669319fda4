// The order of the rows: as they lie in the image, under headings, or sorted, without headings.
// Rows stand in tables of some dozens each, so that the browser skips what is not in sight.

const ROWS_PER_TABLE = 60;
const rowsArea = document.getElementById("rows");
const orderBar = document.getElementById("order");

const ORDERS = [
  {label: "Key", of: (value) => value.lowerPath || value.member.toLowerCase()},
  {label: "Value", of: (value) => value.value},
  ...(page.compared ? [{label: "Before", of: (value) => value.old ?? ""}] : []),
  {label: "Default", of: (value) => value.initial},
  {label: "From", of: (value) => value.place ?? value.state},
  {label: "Offset", of: (value) => value.offset},
];

/**
 * The tables, in the order shown: `{table, rows, groups: [{body, values, hasHeading, shown, isWhole}]}`.
 * `rows` and `shown` count what the filter leaves; no row of a group that `isWhole` is hidden.
 */
let blocks = [];
const imageOrder = readBlocks();
let order = {column: "Offset", falling: false};

/** The tables that came with the page. */
function readBlocks() {
  let index = 0;
  return [...rowsArea.querySelectorAll(".block")].map((table) => ({
    table,
    groups: [...table.querySelectorAll("tbody")].map((body) => {
      const count = body.rows.length - 1;
      index += count;
      return {body, heading: body.rows[0], values: values.slice(index - count, index), hasHeading: true};
    }),
  }));
}

/** Numbers by size, before texts; texts by letters. What is empty comes last. */
function compare(a, b) {
  const numbers = [Number(a), Number(b)];
  const areNumbers = [a, b].map((text, index) => text !== "" && !Number.isNaN(numbers[index]));
  if (areNumbers[0] && areNumbers[1]) {
    return numbers[0] - numbers[1];
  }
  if (areNumbers[0] !== areNumbers[1]) {
    return areNumbers[0] ? -1 : 1;
  }
  if (a === "" || b === "") {
    return (a === "") - (b === "");
  }
  return a < b ? -1 : Number(a > b);
}

function sortedValues() {
  const of = ORDERS.find(({label}) => label === order.column).of;
  const sign = order.falling ? -1 : 1;
  return [...values].sort((a, b) => {
    const keys = [of(a), of(b)];
    const isEmpty = keys.map((key) => key === "");
    return isEmpty[0] || isEmpty[1] ? isEmpty[0] - isEmpty[1] || a.offset - b.offset
      : sign * compare(...keys) || a.offset - b.offset;
  });
}

/** Tables without headings for values in any order. */
function flatBlocks(sorted) {
  const made = [];
  for (let at = 0; at < sorted.length; at += ROWS_PER_TABLE) {
    const table = imageOrder[0].table.cloneNode(false);
    const inner = element("table");
    for (const part of imageOrder[0].table.querySelectorAll("colgroup, thead")) {
      inner.append(part.cloneNode(true));
    }
    const body = element("tbody");
    inner.append(body);
    table.append(inner);
    made.push({table, groups: [{body, values: sorted.slice(at, at + ROWS_PER_TABLE), hasHeading: false}]});
  }
  return made;
}

/** Puts the values' rows, and what is unfolded under them, where `blocks` wants them. */
function placeRows() {
  for (const {groups} of blocks) {
    for (const group of groups) {
      const {body, heading, values: inGroup} = group;
      group.isWhole = false;
      const rows = inGroup.flatMap((value) => value.detail ? [value.row, value.detail] : [value.row]);
      body.replaceChildren(...(heading ? [heading] : []), ...rows);
    }
  }
  rowsArea.replaceChildren(...blocks.map(({table}) => table));
}

function sortBy(column) {
  order = {column, falling: order.column === column && !order.falling};
  const isImageOrder = column === "Offset" && !order.falling;
  blocks = isImageOrder ? imageOrder : flatBlocks(sortedValues());
  rowsArea.classList.toggle("flat", !isImageOrder);
  placeRows();
  showRows();
  showOrder();
}

function showOrder() {
  for (const button of orderBar.children) {
    const isChosen = button.dataset.column === order.column;
    const way = order.falling ? "falling" : "rising";
    button.setAttribute("aria-pressed", String(isChosen));
    button.dataset.way = isChosen ? way : "";
    button.setAttribute("aria-label",
      `Sort by ${button.dataset.column.toLowerCase()}${isChosen ? `, now ${way}` : ""}`);
  }
}

function makeOrderBar() {
  for (const {label} of ORDERS) {
    orderBar.append(element("button", {type: "button", "data-column": label}, label));
  }
  orderBar.classList.toggle("compared", page.compared);
  orderBar.addEventListener("click", (event) => {
    const button = event.target.closest("button");
    if (button) {
      sortBy(button.dataset.column);
    }
  });
  blocks = imageOrder;
  showOrder();
}

/** The shown value `step` rows behind `value`; the last one there is when it leads beyond. */
function neighbour(value, step) {
  const shown = blocks.flatMap(({groups}) => groups.flatMap((group) => group.values))
    .filter((other) => other.shown);
  const at = value ? shown.indexOf(value) + step : 0;
  return shown[Math.max(0, Math.min(at, shown.length - 1))];
}
