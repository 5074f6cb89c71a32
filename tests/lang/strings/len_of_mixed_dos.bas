10 PRINT LEN("Aあ");LEN("あA");LEN("ｱあｱ");LEN("Aあい");KLEN("Aあ");KLEN("Aあｱ")
