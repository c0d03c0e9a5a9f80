"""Which functions there are, and what they do with NULL, with what cannot be decoded, and with arguments that make no
sense; the same in every engine."""

ITEM = "3074257BF7194E4000001A85"
TEXT = "(01)80614141123458(21)6789"
# name: how many arguments it takes
OTHERS = {
    "epc_ai": {2}, "epc_status": {1}, "epc_check": {1}, "epc_ais": {1}, "epc_encode": {2, 3, 4},
    "epc_encode_bytes": {2, 3, 4}, "rosetag_version": {0},
}
# They are NULL for NULL, and for what cannot be decoded.
ONE_ARGUMENT = [
    "epc_scheme", "epc_filter", "epc_tag_uri", "epc_pure_identity", "epc_element_string",
    "epc_barcode_string", "epc_digital_link", "epc_hex", "epc_gtin", "epc_sscc", "epc_gln",
    "epc_serial", "epc_decode", "tid_serial", "tid_designer", "tid_model", "tid_decode",
]

# expression, arguments, result
RESULTS = [
    ("epc_status(?)", [None], None),
    ("epc_check(?)", [None], None),
    ("epc_check(?)", [ITEM], ITEM),
    ("epc_check(?)", [bytes.fromhex(ITEM)], bytes.fromhex(ITEM)),
    ("epc_status(?)", [ITEM], "EPC_OK"),
    ("epc_status(?)", [""], "EPC_ERR_BAD_FORMAT"),
    ("epc_status(?)", [b""], "EPC_ERR_BAD_FORMAT"),
    ("epc_status(?)", [ITEM.replace("3074", "307C")], "EPC_ERR_BAD_PARTITION"),
    ("epc_status(?)", [bytes.fromhex(ITEM)[:11]], "EPC_ERR_TRUNCATED"),
    ("epc_status(?)", ["\u2603"], "EPC_ERR_BAD_FORMAT"),
    ("epc_gtin(?)", ["9506000134352"], "09506000134352"),
    ("epc_sscc(?)", ["(00)106141412345678908"], "106141412345678908"),
    ("epc_gln(?)", ["urn:epc:id:sgln:0614141.12345.400"], "0614141123452"),
    ("epc_ai(?, '10')", ["https://example.com/01/9506000134352/10/LOT7"], "LOT7"),
    ("epc_ai(?, '17')", ["https://example.com/01/9506000134352/10/LOT7"], None),
    ("epc_ai(?, NULL)", [ITEM], None),
    ("epc_ai(?, '10')", [None], None),
    ("epc_encode(?, 'sgtin-96', 3, 7)", [TEXT], ITEM),
    ("epc_encode_bytes(?, 'sgtin-96', 3, 7)", [TEXT], bytes.fromhex(ITEM)),
    ("epc_encode(?, 'sgtin+')", [TEXT], "F7080614141123458046A140"),
    ("epc_encode(?, 'sgtin-96')", [TEXT], None),
    ("epc_encode(?, 'sgtin-96', 3)", [TEXT], None),
    ("epc_encode(?, 'sgtin-96', 3, NULL)", [TEXT], None),
    ("epc_encode(?, NULL, 3, 7)", [TEXT], None),
    ("epc_encode(?, 'sgtin-96', 3, 7)", [None], None),
    ("epc_encode(?, 'sgtin-96', NULL, 7)", ["urn:epc:tag:sgtin-96:3.0614141.812345.6789"], ITEM),
    ("epc_encode(?, 'gid-96')", ["urn:epc:id:gid:1.2.3"], "350000001000002000000003"),
    ("epc_encode(?, 'sgtin-96', 3, 7)", ["none"], None),
    ("tid_model(?)", [bytes.fromhex("E2003412")], 1042),
]

# expression, argument, part of the message
ERRORS = [
    ("epc_check(?)", "none", "EPC_ERR_BAD_FORMAT"),
    ("epc_check(?)", ITEM[:20], "EPC_ERR_TRUNCATED: character 15"),
    ("epc_ai(?, '9999')", ITEM, "there is no AI \"9999\""),
    ("epc_encode(?, 'sgtin-97')", TEXT, "there is no scheme \"sgtin-97\""),
    ("epc_encode(?, '')", TEXT, "there is no scheme"),
    ("epc_encode(?, 'sgtin-96', 8, 7)", TEXT, "0 to 7, not 8"),
    ("epc_encode(?, 'sgtin-96', -1, 7)", TEXT, "0 to 7, not -1"),
    ("epc_encode(?, 'gid-96', 1)", TEXT, "0 to 0, not 1"),
    ("epc_encode(?, 'sgtin-96', 0, 5)", TEXT, "6 to 12, not 5"),
    ("epc_encode_bytes(?, 'sgtin-96', 0, 13)", TEXT, "6 to 12, not 13"),
]


def check_names(test, found):
    """found: (name, count of arguments) of each function that the engine has of the extension."""
    expected = {name: {1} for name in ONE_ARGUMENT} | OTHERS
    test.assertEqual({(name, count) for name in expected for count in expected[name]}, set(found))


def check(test, one, error, too_large="6 to 12, not 4294967303"):
    """one(expression, arguments...) gives a value; error is the class that it raises. too_large is
    what it says of a number that needs more than 32 bits."""
    for name in ONE_ARGUMENT:
        for value in [None, "none", b"\x01"]:
            with test.subTest(name, value=value):
                test.assertIsNone(one(f"{name}(?)", value))
    for expression, arguments, expected in RESULTS:
        with test.subTest(expression, arguments=arguments):
            test.assertEqual(expected, one(expression, *arguments))
    for expression, argument, message in [
            *ERRORS, ("epc_encode(?, 'sgtin-96', 0, 4294967303)", TEXT, too_large)]:
        with test.subTest(expression, argument=argument):
            with test.assertRaises(error) as caught:
                one(expression, argument)
            test.assertIn(message, str(caught.exception))
    test.assertRegex(one("rosetag_version()"), r"^\d+\.\d+\.\d+$")
