# Apache, which hands PHP to PHP-FPM. WordPress' rules stand here as it writes them into a site's .htaccess.

configure_web() {
    web_server=(apache2 -d "$WORLD_DIR/web" -f "$WORLD_DIR/web/apache.conf" -DFOREGROUND)
    # It refuses to serve as root. As another user it still has to bind port 443 and to reach the world's files.
    if [ "$(id -u)" = 0 ]; then
        local kept=-all,+dac_override,+net_bind_service
        web_server=(setpriv --reuid=www-data --regid=www-data --clear-groups --inh-caps="$kept" --ambient-caps="$kept"
            "${web_server[@]}")
    fi
    {
        local module
        for module in mpm_event authz_core dir mime rewrite ssl proxy proxy_http proxy_fcgi setenvif headers; do
            echo "LoadModule ${module}_module /usr/lib/apache2/modules/mod_$module.so"
        done
        cat <<END
Listen 127.0.0.1:443
Listen 127.0.0.1:8080
ServerName brasslet.test
PidFile $WORLD_DIR/web/apache.pid
DefaultRuntimeDir $WORLD_DIR/web
Mutex file:$WORLD_DIR/web
StartServers 1
TypesConfig /etc/mime.types
ErrorLog $WORLD_DIR/logs/web.log
LogFormat "%{Host}i \"%r\" %>s \"%{User-Agent}i\"" world
CustomLog $WORLD_DIR/logs/access.log world
DirectoryIndex index.php index.html
SSLEngine on
SSLSessionCache none
SSLCertificateFile $WORLD_DIR/authority/site.pem
SSLCertificateKeyFile $WORLD_DIR/authority/site.key
IncludeOptional $WORLD_DIR/web/hosts/*.conf
END
    } >"$WORLD_DIR/web/apache.conf"
}

wordpress_host() {
    local root base=/ handed="" passed='RewriteRule .* - [E=HTTP_AUTHORIZATION:%{HTTP:Authorization}]' lost="" front
    local listen=127.0.0.1:443 tls=on name=On socket="$php_socket"
    root=$(root_of "$2")
    if [ "$2" = below ]; then base=/blog/; fi
    # A rule in a folder sends a request on inside the server, and what it sets arrives with REDIRECT_ before its name.
    case ${3-} in
        lost | renamed) passed="" lost="RequestHeader unset Authorization early" ;;&
        renamed) passed='RewriteCond %{HTTP:X-Brasslet-Auth} .
    RewriteRule .* - [E=HTTP_X_BRASSLET_AUTH:%{HTTP:X-Brasslet-Auth}]'
            lost+=$'\n  RequestHeader unset X-Brasslet-Auth' ;;
        handed) handed='RewriteRule ^/\.well-known/bsvalias$ /blog/index.php [L]' ;;
        proxied | unaware) listen=127.0.0.1:8080 tls=off ;;&
        proxied) proxy_host "$1" 'RequestHeader set X-Forwarded-Proto https' ;;
        unaware) proxy_host "$1" "" ;;
        resolved) name=Off ;;
        oneworker) socket="$php_socket.one" ;;
    esac
    case $2 in
        folders) front='RewriteRule ^([_0-9a-zA-Z-]+/)?wp-admin$ $1wp-admin/ [R=301,L]
    RewriteCond %{REQUEST_FILENAME} -f [OR]
    RewriteCond %{REQUEST_FILENAME} -d
    RewriteRule ^ - [L]
    RewriteRule ^([_0-9a-zA-Z-]+/)?(wp-(content|admin|includes).*) $2 [L]
    RewriteRule ^([_0-9a-zA-Z-]+/)?(.*\.php)$ $2 [L]
    RewriteRule . index.php [L]' ;;
        *) front="RewriteCond %{REQUEST_FILENAME} !-f
    RewriteCond %{REQUEST_FILENAME} !-d
    RewriteRule . ${base}index.php [L]" ;;
    esac
    local names=($1)
    cat >"$WORLD_DIR/web/hosts/${1%% *}.conf" <<END
<VirtualHost $listen>
  SSLEngine $tls
  ServerName ${names[0]}
  ${names[1]+ServerAlias ${names[*]:1}}
  UseCanonicalName $name
  DocumentRoot $root
  $lost
  RewriteEngine On
  $handed
  <Directory $root>
    Require all granted
    Options FollowSymLinks
  </Directory>
  <Directory ${root}${base%/}>
    RewriteEngine On
    $passed
    RewriteBase $base
    RewriteRule ^index\.php$ - [L]
    $front
  </Directory>
  <FilesMatch \.php$>
    SetHandler "proxy:unix:$socket|fcgi://${socket##*/}"
  </FilesMatch>
</VirtualHost>
END
}

# proxy_host HOST HEADERS: ends TLS for HOST and asks for it at port 8080, with more lines about HEADERS.
proxy_host() {
    cat >"$WORLD_DIR/web/hosts/$1.proxy.conf" <<END
<VirtualHost 127.0.0.1:443>
  ServerName $1
  ProxyPreserveHost On
  ProxyPass / http://127.0.0.1:8080/
  $2
</VirtualHost>
END
}

redirect_host() {
    cat >"$WORLD_DIR/web/hosts/$1.conf" <<END
<VirtualHost 127.0.0.1:443>
  ServerName $1
  RewriteEngine On
  RewriteRule ^ https://$2%{REQUEST_URI} [R=301,L]
</VirtualHost>
END
}

file_host() {
    cat >"$WORLD_DIR/web/hosts/$1.conf" <<END
<VirtualHost 127.0.0.1:443>
  ServerName $1
  DocumentRoot $2
  <Directory $2>
    Require all granted
    ForceType text/html
  </Directory>
</VirtualHost>
END
}
