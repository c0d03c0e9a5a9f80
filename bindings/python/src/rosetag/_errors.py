"""What is raised when a value cannot be converted."""

from enum import IntEnum

from rosetag import _core


def _status_members() -> dict[str, int]:
    members = {}
    number = 0
    while (name := _core.status_name(number)) is not None:
        members[name.removeprefix("EPC_").removeprefix("ERR_")] = number
        number += 1
    return members


Status = IntEnum("Status", _status_members(), module=__name__)
Status.__doc__ = """How a conversion ended: ``Status.OK``, or what was wrong.

The numbers are those of the ``status`` column of :mod:`rosetag.columns`.
"""


class RosetagError(ValueError):
    """A value that cannot be converted. Its text says what is wrong, where, and what to do.

    >>> import rosetag
    >>> try:
    ...     rosetag.decode("(01)80614141123459")
    ... except rosetag.RosetagError as error:
    ...     print(error.status.name)
    CHECK_DIGIT

    Attributes:
        status: what was wrong, a :class:`Status`.
        value: the value as it was given.
        position: where in the value, counted in characters from 0.
        length: how many characters are at fault; 0 between two of them, or at the end.
        culprit: the characters that stand there; may be empty.
        message: what is wrong, without the place.
        remedy: what to do about it; may be empty.
    """

    def __init__(
        self,
        text: str,
        status: int = 0,
        value: object = None,
        position: int = 0,
        length: int = 0,
        culprit: str = "",
        message: str = "",
        remedy: str = "",
    ) -> None:
        super().__init__(text, status, value, position, length, culprit, message, remedy)
        self.status = Status(status)
        self.value = value
        self.position = position
        self.length = length
        self.culprit = culprit
        self.message = message
        self.remedy = remedy

    def __str__(self) -> str:
        return str(self.args[0])


_core.set_error_class(RosetagError)
