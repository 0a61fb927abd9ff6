"""The table rows printed by the scripts in this folder."""


def row(what, figure, beside=""):
    print(f"| {what} | {figure} | {beside} |", flush=True)
