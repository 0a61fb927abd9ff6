"""The rows that the scripts of this folder print."""


def row(what, figure, beside=""):
    print(f"| {what} | {figure} | {beside} |", flush=True)
