10 PRINT "ｱあ漢";POS(0)
