10 PRINT VAL("&HFF");VAL("&hff");VAL("&17");VAL("&O17");VAL("&o17");VAL("&H");VAL("&");VAL("&HFG");VAL(" &H10 ");VAL("&HFFFFFFFF")
