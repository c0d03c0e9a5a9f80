/*
 * The shared rows, through the package: outcomes(rosetag, explain, text) gives those that differ.
 * It runs in Node.js and, unchanged, in a browser.
 */

/** Rows that the package does not pass, by their ids, each with its reason. None. */
export const skipped = new Map();

function unescaped(cell) {
  const bytes = [];
  for (let at = 0; at < cell.length; ++at) {
    const next = cell[at + 1];
    if (cell[at] !== "\\") {
      bytes.push(cell.charCodeAt(at));
    } else if (next === "x") {
      bytes.push(Number.parseInt(cell.slice(at + 2, at + 4), 16));
      at += 3;
    } else {
      bytes.push({ t: 9, n: 10, "\\": 92 }[next]);
      at += 1;
    }
  }
  return new TextDecoder().decode(Uint8Array.from(bytes));
}

export function rowsOf(text) {
  const [head, ...lines] = text.replace(/\n$/, "").split("\n");
  const names = head.split("\t");
  return lines.map((line) =>
    Object.fromEntries(line.split("\t").map((cell, at) => [names[at], unescaped(cell)])),
  );
}

const camelCase = (word) => word.replace(/_(.)/g, (_, letter) => letter.toUpperCase());
const number = (cell) => (cell === "" ? undefined : Number(cell));

function splitAi(text) {
  const close = text.indexOf(")");
  return [text.slice(1, close), text.slice(close + 1)];
}

function output(row, rosetag, { check, explain, encodeAi, decodeAi, tid }) {
  const { op, input, scheme, filter, gcp_length: gcpLength } = row;
  const encoding = row.encoding || undefined;
  switch (op) {
    case "encode": {
      const options = { filter: number(filter), gcpLength: number(gcpLength), encoding };
      return rosetag.encode(input, { ...options, scheme: scheme || undefined });
    }
    case "encode_ai":
      return encodeAi(...splitAi(input), { withCode: true, encoding }).hex;
    case "decode_ai": {
      const { ai, value } = decodeAi(input);
      return `(${ai})${value}`;
    }
    case "tid": {
      const { designer, model, serial } = tid(input);
      return `${designer} ${model} ${serial ?? ""}`.trimEnd();
    }
    case "check":
      return check(input)
        .map(({ severity, rule, ai }) => `${severity} ${rule} ${ai ?? ""}`.trimEnd())
        .join(", ");
    case "explain":
      return explain(input)
        .fields.map(({ name, bits }) => `${name}=${bits}`)
        .join(", ");
    case "ais":
      return rosetag.parse(input).map(({ ai, value }) => `(${ai})${value}`).join("");
    case "scheme":
    case "filter":
      return rosetag.decode(input)[op];
    default:
      return rosetag.convert(input, camelCase(op));
  }
}

function outcome(row, rosetag, explain) {
  try {
    return ["EPC_OK", String(output(row, rosetag, explain) ?? "")];
  } catch (error) {
    if (!(error instanceof rosetag.RosetagError)) {
      throw error;
    }
    return [error.status === "OK" ? "EPC_OK" : `EPC_ERR_${error.status}`, ""];
  }
}

/** Rows that differ, through the functions on single values. */
export function differencesOfSingles(rows, rosetag, explain) {
  return rows.filter((row) => {
    const [status, text] = outcome(row, rosetag, explain);
    return !skipped.has(row.id) && (status !== row.status || text !== row.output);
  });
}

const columns = [
  ...["hex", "tag_uri", "pure_identity", "element_string", "barcode_string", "digital_link"],
  ...["gtin", "serial", "scheme", "filter"],
];

/** The same through decodeMany, of the rows that it can do; also how many those are. */
export function differencesOfMany(rows, rosetag) {
  const wrong = [];
  let count = 0;
  for (const op of columns) {
    const name = camelCase(op);
    const group = rows.filter((row) => row.op === op && !skipped.has(row.id));
    const result = rosetag.decodeMany(group.map((row) => row.input), name);
    count += group.length;
    group.forEach((row, at) => {
      const status = rosetag.statuses[result.status[at]];
      const text = String(result[name][at] ?? "");
      const expected = row.status.replace(/^EPC_(ERR_)?/, "");
      if (status !== expected || text !== row.output) {
        wrong.push({ ...row, found: [status, text] });
      }
    });
  }
  return { wrong, count };
}
