#!/usr/bin/env python3
"""What a column costs in Spark: python bindings/python/bench_spark.py

Rows a second from a Parquet file of four million different values into nothing, the median of three
runs, on one core and on two: Spark's own upper(), a function that gives each batch back as it came
(what it costs Spark to move the batch), and ours.
"""

import os
import statistics
import sys
import tempfile
import time

import pyspark.sql.functions as F
import rosetag.spark as rs
from pyspark.sql import Column, SparkSession
from pyspark.sql.types import StringType

ROWS = 4_000_000


def session(cores: int) -> SparkSession:
    os.environ["PYSPARK_PYTHON"] = sys.executable
    spark = (
        SparkSession.builder.master(f"local[{cores}]")
        .config("spark.driver.bindAddress", "127.0.0.1")
        .config("spark.driver.host", "127.0.0.1")
        .config("spark.driver.memory", "2g")
        .config("spark.ui.enabled", "false")
        .config("spark.ui.showConsoleProgress", "false")
        .getOrCreate()
    )
    spark.sparkContext.setLogLevel("ERROR")
    return spark


def seconds(spark: SparkSession, path: str, column: Column) -> float:
    frame = spark.read.parquet(path).select(column)
    times = []
    for _ in range(4):
        start = time.perf_counter()
        frame.write.format("noop").mode("overwrite").save()
        times.append(time.perf_counter() - start)
    return statistics.median(times[1:])


def main() -> None:
    with tempfile.TemporaryDirectory() as path:
        for cores in (1, 2):
            spark = session(cores)
            if cores == 1:
                serial = F.lpad(F.hex("id"), 8, "0")
                values = spark.range(ROWS, numPartitions=4).select(
                    F.concat(F.lit("3074257BF7194E40"), serial).alias("epc")
                )
                values.write.mode("overwrite").parquet(path)
            roads = [
                ("the column as it is", F.col("epc")),
                ("upper(epc)", F.upper("epc")),
                ("a function that does nothing", F.arrow_udf(lambda epc: epc, StringType())("epc")),
                ("decode to tag_uri", rs.decode("epc", "tag_uri")),
                ("decode to element_string", rs.decode("epc", "element_string")),
                ("decode to gtin", rs.decode("epc", "gtin")),
            ]
            print(f"{cores} {'core' if cores == 1 else 'cores':29}{'rows/s':>12}{'ns/row':>9}")
            for name, column in roads:
                taken = seconds(spark, path, column)
                print(f"  {name:30}{ROWS / taken:12,.0f}{taken / ROWS * 1e9:9.0f}", flush=True)
            spark.stop()


if __name__ == "__main__":
    main()
