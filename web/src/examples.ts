/*
 * Values to try, one of each kind.
 */
export const examples: readonly { title: string; value: string }[] = [
    { title: "a tag’s hex", value: "3074257BF7194E4000001A85" },
    { title: "an EPC tag URI", value: "urn:epc:tag:sscc-96:3.0614141.1234567890" },
    { title: "an element string", value: "(01)80614141123458(21)6789" },
    { title: "a scanned barcode", value: "]C10109506000134352171412251021LOT7" },
    { title: "a GS1 Digital Link", value: "https://id.example.com/01/09506000134352/10/ABC123?17=271231" },
    { title: "a tag with a weight and a date", value: "F7880614141123458046A145CCE7CC40C01B58421E0C25AC592F6600" },
    { title: "a chip’s TID", value: "E28011302000123456789ABC" },
    { title: "a value with a mistake", value: "(01)80614141123457(17)271332" },
];
