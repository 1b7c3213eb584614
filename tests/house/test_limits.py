"""Every test has a limit after which CTest ends it: test_limits.py CTEST BUILD"""
import json
import subprocess
import sys

ctest, build = sys.argv[1:]
said = subprocess.run([ctest, "--test-dir", build, "--show-only=json-v1"], capture_output=True, check=True)
tests = json.loads(said.stdout)["tests"]


def has_limit(test):
    return any(entry["name"] == "TIMEOUT" and entry["value"] > 0 for entry in test.get("properties", []))


# A program that is not built yet is a single test here.
unlimited = [test["name"] for test in tests if not has_limit(test) and not test["name"].endswith("_NOT_BUILT")]
for name in unlimited[:20]:
    print(f"{name} has no limit: add it by quillmere_test, quillmere_add_test or quillmere_add_long_test")
if len(tests) < 20:
    print(f"only {len(tests)} tests were seen")
sys.exit(1 if unlimited or len(tests) < 20 else 0)
