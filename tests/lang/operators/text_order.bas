10 PRINT "A"<"a";"B">"AZ";"AB"="AB"
