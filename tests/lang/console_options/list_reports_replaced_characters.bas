10 PRINT "K-*H"
