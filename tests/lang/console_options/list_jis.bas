10 PRINT "日本"
