"""The functions on a cluster of two workers, each a process of its own."""

import doctest
import os
import signal
import subprocess
import sys
import threading
import time
from pathlib import Path

import pytest

pyspark = pytest.importorskip("pyspark")

import pyspark.sql.functions as F  # noqa: E402
import rosetag  # noqa: E402
import rosetag.spark as rs  # noqa: E402
from pyspark.sql import SparkSession  # noqa: E402

ROWS = 2_000_000
BAD_EVERY = 1000


@pytest.fixture(scope="module")
def spark(tmp_path_factory):
    with pytest.MonkeyPatch.context() as patch:
        # Spark keeps the folder in which it starts: what examples write goes there.
        patch.chdir(tmp_path_factory.mktemp("spark"))
        patch.setenv("PYSPARK_PYTHON", sys.executable)
        patch.setenv("SPARK_LOCAL_IP", "127.0.0.1")
        session = (
            SparkSession.builder.master("local-cluster[2,1,1024]")
            .config("spark.driver.host", "127.0.0.1")
            .config("spark.ui.enabled", "false")
            .config("spark.sql.shuffle.partitions", "4")
            .config("spark.executorEnv.SPARK_LOCAL_IP", "127.0.0.1")
            .getOrCreate()
        )
        session.sparkContext.setLogLevel("ERROR")
        yield session
        session.stop()


def reads(spark):
    """SGTIN-96 values whose serial is the row's number; one in a thousand is bad."""
    serial = F.lpad(F.hex("id"), 8, "0")
    good = F.concat(F.lit("3074257BF7194E40"), serial)
    bad = F.lit("307C257BF7194E4000001A85")
    epc = F.when(F.col("id") % BAD_EVERY == 0, bad).otherwise(good)
    return spark.range(ROWS, numPartitions=8).select("id", epc.alias("epc"))


def check_counts(frame):
    counts = {
        (row["status"], row["gtin"]): row["count"]
        for row in frame.groupBy("item.status", "item.gtin").count().collect()
    }
    bad = ROWS // BAD_EVERY
    assert counts == {(0, "80614141123458"): ROWS - bad, (6, None): bad}


def test_two_million_rows(spark):
    decoded = reads(spark).select("id", rs.decode("epc", ["gtin", "serial", "status"]).alias("item"))
    check_counts(decoded)
    wrong = decoded.where(
        F.col("item.serial").isNotNull() & (F.col("item.serial") != F.col("id").cast("string"))
    )
    assert wrong.count() == 0


def executor_pids() -> list[int]:
    listed = subprocess.run(["pgrep", "-f", "CoarseGrainedExecutorBackend"], stdout=subprocess.PIPE)
    return [int(pid) for pid in listed.stdout.split()]


def test_a_worker_that_is_killed(spark):
    """Its rows are computed again elsewhere: none is lost, none counted twice."""
    before = set(executor_pids())
    assert len(before) >= 2

    def kill():
        time.sleep(1)
        os.kill(min(before), signal.SIGKILL)

    killer = threading.Thread(target=kill)
    killer.start()
    check_counts(reads(spark).select(rs.decode("epc", ["gtin", "status"]).alias("item")))
    killer.join()
    assert min(before) not in executor_pids()


def test_sql(spark):
    rs.register(spark)
    values = [("3074257BF7194E4000001A85",), ("nonsense",), (None,)]
    spark.createDataFrame(values, "epc string").createOrReplaceTempView("reads")
    rows = spark.sql(
        """SELECT epc_tag_uri(epc) AS uri, epc_element_string(epc) AS text, epc_gtin(epc) AS gtin,
                  epc_digital_link(epc) AS link, epc_serial(epc) AS serial,
                  epc_filter(epc) AS filter, epc_status(epc) AS status
           FROM reads ORDER BY uri DESC NULLS LAST, status DESC NULLS LAST"""
    ).collect()
    item = rosetag.decode(values[0][0])
    assert tuple(rows[0]) == (
        item.tag_uri, item.element_string, item.gtin, item.digital_link, item.serial, 3, "EPC_OK",
    )
    assert rows[1]["gtin"] is None and rows[1]["status"].startswith("EPC_ERR_")
    assert tuple(rows[2]) == (None,) * 7


def test_how_values_are_read(spark):
    rows = [("AAF930003074257BF7194E4000001A85", "]C1010950600013435221021|17261231")]
    frame = spark.createDataFrame(rows, "bank string, barcode string")
    read = frame.select(
        rs.decode("bank", "gtin", bank="crc-pc"), rs.decode("bank", "gtin", bank="epc"),
        rs.decode("barcode", "serial", separator="|"), rs.decode("barcode", "serial"),
    )
    assert tuple(read.collect()[0]) == ("80614141123458", None, "021", "021|17261231")


def test_encoding(spark):
    rows = [("(01)80614141123458(21)6789", "sgtin-96", 3, 7), ("(00)106141412345678908", "sscc-96", 0, 7)]
    frame = spark.createDataFrame(rows, "text string, scheme string, filter int, length int")
    frame.createOrReplaceTempView("items")
    expected = ["3074257BF7194E4000001A85", "3114257BF4499602D2000000"]
    by_columns = frame.select(
        rs.encode("text", F.col("scheme"), filter=F.col("filter"), gcp_length=F.col("length"))
    )
    assert [row[0] for row in by_columns.collect()] == expected
    by_constants = frame.limit(1).select(rs.encode("text", "sgtin-96", filter=3, gcp_length=7))
    assert by_constants.collect()[0][0] == expected[0]
    rs.register(spark)
    by_sql = spark.sql("SELECT epc_encode(text, scheme, filter, length) FROM items")
    assert [row[0] for row in by_sql.collect()] == expected


def test_checking(spark):
    values = [("(01)80614141123458",), ("(01)80614141123459(17)251301",), (None,)]
    frame = spark.createDataFrame(values, "text string").coalesce(1)
    checked = frame.select(
        rs.check("text").alias("is_valid"), rs.check("text", ["errors", "rule"]).alias("item")
    )
    rows = [(row.is_valid, row.item.errors, row.item.rule) for row in checked.collect()]
    assert rows == [(True, 0, None), (False, 2, "check_digit"), (None, None, None)]


def test_bytes(spark):
    frame = spark.createDataFrame([(bytes.fromhex("3074257BF7194E4000001A85"),)], "epc binary")
    assert frame.select(rs.decode("epc", "gtin")).collect()[0][0] == "80614141123458"


def test_examples_of_the_page(spark):
    page = Path(__file__).parents[3] / "docs/spark.md"
    result = doctest.testfile(str(page), module_relative=False)
    assert result.attempted > 10
    assert result.failed == 0
