10 PRINT VAL("12");VAL(" 3.5 ");VAL("-5");VAL("+5");VAL(".5");VAL("12AB");VAL("1E3");VAL("1.5E-2X")
