PRINT "a"
PRINT "b"
