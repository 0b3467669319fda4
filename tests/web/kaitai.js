// kaitai.js DESCRIPTION PARAMTOOL TREE: compiles the description, reads images with the resulting
// reader, and compares every value with `paramtool dump`.
"use strict";

const {execFileSync} = require("child_process");
const fs = require("fs");
const path = require("path");
const {KaitaiStream} = require("kaitai-struct");
const yaml = require("js-yaml");
const compilerModule = require("kaitai-struct-compiler");

const [description, paramtool, tree] = process.argv.slice(2).map((file) => path.resolve(file));
const IMAGE_SIZE = 29928;
const IMAGES = 20;

/** How the compiler spells a member's name in JavaScript. */
function identifier(member) {
  const words = member.replace(/([a-z])([A-Z])/g, "$1_$2").replace(/([A-Z0-9])([A-Z][a-z])/g, "$1_$2")
    .toLowerCase().split("_");
  return words.map((word, index) => index ? word[0].toUpperCase() + word.slice(1) : word).join("");
}

function valueAt(image, member) {
  return member.split(/[.[\]]+/).filter(Boolean)
    .reduce((node, part) => /^\d+$/.test(part) ? node[Number(part)] : node[identifier(part)], image);
}

/** Numbers in the image that is not always the same, and is the same in every run. */
function* pseudoRandom(seed) {
  for (;;) {
    seed = (Math.imul(seed, 1664525) + 1013904223) >>> 0;
    yield seed >>> 24;
  }
}

function randomImage(sample, number) {
  const bytes = Buffer.from(sample);
  const random = pseudoRandom(number);
  for (let i = 16; i < IMAGE_SIZE - 8; ++i) {
    bytes[i] = number === 0 ? bytes[i] : random.next().value;
  }
  return bytes;
}

/** Decoders differ in how many characters they put in place of bytes that are no UTF-8. */
function comparable(value) {
  return String(value).toLowerCase().replace(/\uFFFD+/g, "\uFFFD");
}

function compare(Reader, bytes, file) {
  fs.writeFileSync(file, bytes);
  const dump = JSON.parse(execFileSync(paramtool, ["dump", "--format=json", file],
    {maxBuffer: 1 << 28}));
  const image = new Reader(new KaitaiStream(bytes)).image;
  let compared = 0;
  for (const entry of dump.entries) {
    if (entry.type === "bytes") {
      continue;
    }
    let read = valueAt(image, entry.member);
    if (entry.type === "u64") {
      read = Number(BigInt.asIntN(64, bytes.readBigUInt64LE(entry.offset))) < 0 ? entry.value : read;
    }
    const same = typeof entry.value === "number"
      ? Math.fround(read) === Math.fround(entry.value) || read === entry.value
      : comparable(read) === comparable(entry.value) ||
        (entry.type === "f32" && !Number.isFinite(read) && !Number.isFinite(Number(entry.value)));
    if (!same) {
      throw new Error(`${entry.member}: ${read}, but dump says ${entry.value}`);
    }
    ++compared;
  }
  return compared;
}

async function main() {
  const compiler = typeof compilerModule === "function" ? new compilerModule() : compilerModule;
  const files = await compiler.compile("javascript", yaml.load(fs.readFileSync(description, "utf8")),
    {importYaml: async () => ({})}, false);
  const directory = path.dirname(description);
  const [name, text] = Object.entries(files)[0];
  fs.writeFileSync(path.join(directory, name), text);
  const reader = require(path.join(directory, name));
  const Reader = reader.ParamgenImage ?? reader;
  const entries = JSON.parse(execFileSync(paramtool, ["dump", "--format=json", tree],
    {maxBuffer: 1 << 28})).entries;
  const sample = Buffer.from(entries.map(({raw}) => raw).join(""), "hex");
  let compared = 0;
  for (let i = 0; i < IMAGES; ++i) {
    compared += compare(Reader, randomImage(sample, i), path.join(directory, "image.bin"));
  }
  console.log(`Kaitai Struct: ${compared} values of ${IMAGES} images agree`);
}

main().catch((error) => {
  console.error(error.message);
  process.exit(1);
});
