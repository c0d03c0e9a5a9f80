"""What is raised when a value cannot be converted."""

from enum import IntEnum

from rosetag import _core


class Status(IntEnum):
    """How a conversion ended: ``Status.OK``, or what was wrong.

    The numbers are those of the ``status`` column of :mod:`rosetag.columns`.
    """

    OK = 0
    NO_ROOM = 1
    TRUNCATED = 2
    OUT_OF_RANGE = 3
    TOO_LONG = 4
    UNKNOWN_HEADER = 5
    BAD_PARTITION = 6
    BAD_FORMAT = 7
    FILTER_FIELD = 8
    SCHEME_MISMATCH = 9
    FILTER_LIMIT = 10
    UNKNOWN_SCHEME = 11
    NO_KEY_DEFINITION = 12
    UNKNOWN_AI = 13
    SECOND_KEY = 14
    NO_KEY_AI = 15
    NO_SECONDARY_AI = 16
    BAD_CHARACTER = 17
    NOT_SUPPORTED = 18
    NO_KEY_FOR_SCHEME = 19
    NO_PRIMARY_KEY = 20
    TOO_MANY_AIS = 21
    KEY_CONFLICT = 22
    CHECK_DIGIT = 23
    BAD_TID = 24


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
        position: where in the value, counted in characters from 0; in digits of its hex where it
            was given as bytes or words.
        length: how many characters are at fault; 0 between two of them, or at the end.
        culprit: the characters there; may be empty.
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
