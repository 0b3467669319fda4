// The image byte by byte: 256 bytes a row, coloured by what they are.

const BYTES_PER_ROW = 256;
const canvas = document.getElementById("map-canvas");
const frame = document.getElementById("map-frame");
const under = document.getElementById("under");
const imageSize = values.length ? values.at(-1).offset + values.at(-1).size : 0;
const dark = matchMedia("(prefers-color-scheme: dark)");

/** Hues that stay apart for most eyes; what is beyond them is told by the line above the map. */
const HUES = [212, 28, 152, 345, 268, 52, 190, 8, 96, 310, 240];
const STATE_COLOURS = {set: [212, 70], default: [212, 18], unread: [0, 0], stored: [212, 50],
  constant: [268, 30], reserved: [0, 0], changed: [28, 90], flagged: [345, 85]};

const COLOURINGS = {
  part: {label: "Part", of: (value) => value.part || "reserved"},
  type: {label: "Type", of: (value) => value.type || "bytes"},
  state: {label: "State", of: stateOf},
};

let colouring = "state";
let factor = 1;
let zoom = 4;
let pointed;

/** A byte's width in pixels: with the factor 1, a row of the map fills the page, if it can. */
function fitZoom() {
  const room = frame.parentElement.clientWidth - 2; // the frame's lines
  zoom = Math.max(room < 2 * BYTES_PER_ROW ? 1 : 2, Math.floor(room / BYTES_PER_ROW * factor));
}

function stateOf(value) {
  if (value.flags) {
    return "flagged";
  }
  return value.changed ? "changed" : value.state;
}

/** The colour of each class of values, by the chosen colouring. */
function palette() {
  const lightness = dark.matches ? 46 : 62;
  const names = [...new Set(values.map(COLOURINGS[colouring].of))];
  return new Map(names.map((name, index) => {
    if (name === "reserved" || name === "bytes") {
      return [name, dark.matches ? "hsl(0 0% 20%)" : "hsl(0 0% 90%)"];
    }
    if (colouring === "state") {
      const [hue, saturation] = STATE_COLOURS[name];
      const paler = name === "default" || name === "unread" ? (dark.matches ? -12 : 18) : 0;
      return [name, `hsl(${hue} ${saturation}% ${lightness + paler}%)`];
    }
    const round = Math.floor(index / HUES.length);
    return [name, `hsl(${HUES[index % HUES.length]} ${60 - 25 * round}% ${lightness - 12 * round}%)`];
  }));
}

/** The runs of bytes of a value, one for each row of the map that it touches. */
function runsOf({offset, size}) {
  const runs = [];
  for (let at = offset; at < offset + size;) {
    const column = at % BYTES_PER_ROW;
    const length = Math.min(offset + size - at, BYTES_PER_ROW - column);
    runs.push([column * zoom, Math.floor(at / BYTES_PER_ROW) * zoom, length * zoom, zoom]);
    at += length;
  }
  return runs;
}

function drawMap() {
  fitZoom();
  canvas.width = BYTES_PER_ROW * zoom;
  canvas.height = Math.ceil(imageSize / BYTES_PER_ROW) * zoom;
  const context = canvas.getContext("2d");
  const colours = palette();
  const gap = zoom > 2 ? 1 : 0;
  for (const value of values) {
    context.fillStyle = colours.get(COLOURINGS[colouring].of(value));
    runsOf(value).forEach(([x, y, width, height], index) => {
      const left = index === 0 ? gap : 0;
      context.fillRect(x + left, y + gap, width - left, height - gap);
    });
  }
  if (pointed) {
    outline(context, pointed);
  }
  document.getElementById("zoom").textContent = `${factor}×`;
  showLegend(colours);
}

/** Marks a value, and the other places that its key feeds. */
function outline(context, value) {
  const all = value.path ? places.get(value.lowerPath) : [value];
  context.strokeStyle = dark.matches ? "#fff" : "#000";
  for (const place of all) {
    context.lineWidth = place === value ? 2 : 1;
    for (const [x, y, width, height] of runsOf(place)) {
      context.strokeRect(x + 0.5, y + 0.5, width, height);
    }
  }
}

function showLegend(colours) {
  const counts = new Map();
  for (const value of values) {
    const name = COLOURINGS[colouring].of(value);
    counts.set(name, (counts.get(name) ?? 0) + value.size);
  }
  document.getElementById("legend").replaceChildren(...[...colours].map(([name, colour]) => {
    const swatch = element("span", {class: "swatch"});
    swatch.style.background = colour;
    return element("li", {}, swatch, `${name} `, element("b", {}, `${counts.get(name)} bytes`));
  }));
}

function describe(value) {
  return `@${value.offset} (0x${value.offset.toString(16)}), ${value.size} bytes · ${value.title}` +
    `${valueText(value) === "" ? "" : ` = ${valueText(value)}`} · ${value.member} · ${stateOf(value)}`;
}

function point(value) {
  if (!value || value === pointed) {
    return;
  }
  pointed = value;
  under.textContent = describe(value);
  drawMap();
}

/** Points at a value and brings it into sight. */
function pointAndScroll(value) {
  point(value);
  const [x, y] = runsOf(value)[0];
  frame.scrollLeft = Math.max(0, x - frame.clientWidth / 2);
  frame.scrollTop = Math.max(0, y - frame.clientHeight / 2);
}

function valueUnder(event) {
  const area = canvas.getBoundingClientRect();
  const column = Math.floor((event.clientX - area.left) / zoom);
  const row = Math.floor((event.clientY - area.top) / zoom);
  return column < 0 || column >= BYTES_PER_ROW ? undefined : valueAt(row * BYTES_PER_ROW + column);
}

function setFactor(next) {
  factor = Math.max(0.5, Math.min(4, next));
  drawMap();
  if (pointed) {
    pointAndScroll(pointed);
  }
}

/** Where the arrow keys lead from a value. */
function moved(value, key) {
  const last = imageSize - 1;
  switch (key) {
    case "ArrowRight": return valueAt(Math.min(last, value.offset + value.size));
    case "ArrowLeft": return valueAt(Math.max(0, value.offset - 1));
    case "ArrowDown": return valueAt(Math.min(last, value.offset + BYTES_PER_ROW));
    case "ArrowUp": return valueAt(Math.max(0, value.offset - BYTES_PER_ROW));
    case "Home": return valueAt(0);
    case "End": return valueAt(last);
    default: return undefined;
  }
}

function onMapKey(event) {
  const next = moved(pointed ?? values[0], event.key);
  if (next) {
    pointAndScroll(next);
  } else if (event.key === "Enter" && pointed) {
    location.hash = anchorOf(pointed);
  } else if (event.key === "+" || event.key === "-") {
    setFactor(event.key === "+" ? factor * 2 : factor / 2);
  } else {
    return;
  }
  event.preventDefault();
}

function makeMap() {
  const choices = document.getElementById("colouring");
  for (const [name, {label}] of Object.entries(COLOURINGS)) {
    const radio = element("input", {type: "radio", name: "colouring", value: name});
    radio.checked = name === colouring;
    choices.append(element("label", {}, radio, element("span", {}, label)));
  }
  choices.addEventListener("change", (event) => {
    colouring = event.target.value;
    drawMap();
  });
  canvas.addEventListener("pointermove", (event) => point(valueUnder(event)));
  canvas.addEventListener("click", (event) => {
    const value = valueUnder(event);
    if (value) {
      location.hash = anchorOf(value);
    }
  });
  canvas.addEventListener("keydown", onMapKey);
  document.getElementById("zoom-in").addEventListener("click", () => setFactor(factor * 2));
  document.getElementById("zoom-out").addEventListener("click", () => setFactor(factor / 2));
  dark.addEventListener("change", () => isShown("map") && drawMap());
  addEventListener("resize", () => isShown("map") && drawMap());
}
