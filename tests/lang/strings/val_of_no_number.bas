10 PRINT VAL("");VAL("ABC");VAL("あ");VAL("nan");VAL("inf");VAL("0x10");VAL("-");VAL(".")
