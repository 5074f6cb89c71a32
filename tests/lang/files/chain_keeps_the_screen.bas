10 PRINT "first":CHAIN "B"
