# A certificate authority of the world's own, which everything inside trusts, and one certificate for all its sites.

make_authority() {
    local folder="$WORLD_DIR/authority" bundle=/etc/ssl/certs/ca-certificates.crt
    local other_names=DNS:www.newer.brasslet.test,DNS:xn--bcher-kva.example,DNS:corvane.example
    export WORLD_CA="$folder/authority.pem"
    mkdir "$folder"

    openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -noenc -days 30 -subj "/CN=Test world authority" \
        -addext "keyUsage=critical,keyCertSign,cRLSign" \
        -keyout "$folder/authority.key" -out "$WORLD_CA" 2>/dev/null

    openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -noenc -days 30 -subj "/CN=brasslet.test" \
        -CA "$WORLD_CA" -CAkey "$folder/authority.key" \
        -addext "basicConstraints=critical,CA:FALSE" -addext "extendedKeyUsage=serverAuth" \
        -addext "subjectAltName=DNS:brasslet.test,DNS:*.brasslet.test,DNS:*.net.brasslet.test,$other_names" \
        -keyout "$folder/site.key" -out "$folder/site.pem" 2>/dev/null

    cat "$bundle" "$WORLD_CA" >"$folder/bundle.crt"
    replace_file "$bundle" "$folder/bundle.crt"
}
