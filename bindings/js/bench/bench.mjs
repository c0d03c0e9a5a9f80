import { convert, decode, decodeMany } from "rosetag";

const CALLS = 200_000;
const RUNS = 9;
const values = Array.from({ length: 4096 }, (_, serial) =>
  `3074257BF7194E4000${(7 * serial).toString(16).toUpperCase().padStart(6, "0")}`,
);

function nanoseconds(calls, run) {
  const runs = Array.from({ length: RUNS }, () => {
    const start = process.cpuUsage();
    run();
    const { user, system } = process.cpuUsage(start);
    return (1000 * (user + system)) / calls;
  });
  return runs.sort((one, other) => one - other)[RUNS >> 1];
}

function single(call) {
  return nanoseconds(CALLS, () => {
    let length = 0;
    for (let i = 0; i < CALLS; ++i) length += call(values[i % values.length]);
    return length;
  });
}
const many = Array.from({ length: 100_000 }, (_, i) => values[i % values.length]);
console.log({
  convert: single((value) => convert(value, "tagUri").length),
  decode: single((value) => decode(value).tagUri.length),
  many: nanoseconds(many.length, () => decodeMany(many, "tagUri")),
  many6: nanoseconds(many.length, () => decodeMany(many, ["tagUri","gtin","serial","elementString","scheme","filter"])),
});
