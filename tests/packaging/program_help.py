"""What brindle-batch says in its help texts: its actions, and the options of each with what they take."""
import re
import subprocess


def help_of(program, *action):
    return subprocess.run([program, *action, "--help"], stdout=subprocess.PIPE, text=True, check=True).stdout


def options_in(text):
    """{option: what it takes, "" for a flag}; short and long forms are options of their own."""
    options = {}
    for short, long, takes in re.findall(r"^  (?:(-\w), |    )(--[\w-]+)(?: (\S+))?", text, re.M):
        options[long] = takes
        if short:
            options[short] = takes
    return options


def actions_of(program):
    """{action: its options}"""
    listed = help_of(program).split("Actions:\n")[1].split("\n\n")[0]
    names = re.findall(r"^  (\w\S*)", listed, re.M)
    assert len(names) > 10, listed
    return {name: options_in(help_of(program, name)) for name in names}
