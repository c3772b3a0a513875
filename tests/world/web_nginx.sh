# nginx, one process that keeps the user it was started as.

configure_web() {
    web_server=(nginx -c "$WORLD_DIR/web/nginx.conf" -e "$WORLD_DIR/logs/web.log")
    cat >"$WORLD_DIR/web/nginx.conf" <<END
daemon off;
master_process off;
pid $WORLD_DIR/web/nginx.pid;
error_log $WORLD_DIR/logs/web.log;
events {}
http {
  include /etc/nginx/mime.types;
  log_format world '\$host "\$request" \$status "\$http_user_agent"';
  access_log $WORLD_DIR/logs/access.log world;
  client_body_temp_path $WORLD_DIR/web/body;
  fastcgi_temp_path $WORLD_DIR/web/fastcgi;
  proxy_temp_path $WORLD_DIR/web/proxy;
  uwsgi_temp_path $WORLD_DIR/web/uwsgi;
  scgi_temp_path $WORLD_DIR/web/scgi;
  client_max_body_size 64m;
  ssl_certificate $WORLD_DIR/authority/site.pem;
  ssl_certificate_key $WORLD_DIR/authority/site.key;
  include $WORLD_DIR/web/hosts/*.conf;
}
END
}

wordpress_host() {
    local front="" to_php="" listen="127.0.0.1:443 ssl" socket="$php_socket"
    case $2 in
        below) front='location /blog/ { try_files $uri $uri/ /blog/index.php$is_args$args; }' ;;
        # As WordPress' own documentation has it: the files of a site in a folder are those of the network.
        folders)
            front='if (!-e $request_filename) {
    rewrite /wp-admin$ $scheme://$host$request_uri/ permanent;
    rewrite ^(/[^/]+)?(/wp-.*) $2 last;
    rewrite ^(/[^/]+)?(/.*\.php) $2 last;
  }' ;;&
        *)
            front+='
  location / { try_files $uri $uri/ /index.php$is_args$args; }' ;;
    esac
    case ${3-} in
        lost | renamed) to_php='fastcgi_param HTTP_AUTHORIZATION "" if_not_empty;' ;;&
        renamed)
            to_php+='
    fastcgi_param HTTP_X_BRASSLET_AUTH "" if_not_empty;
    fastcgi_param REDIRECT_HTTP_X_BRASSLET_AUTH $http_x_brasslet_auth if_not_empty;' ;;
        handed) front+='
  location = /.well-known/bsvalias { rewrite ^ /blog/index.php last; }' ;;
        proxied | unaware) listen=127.0.0.1:8080 ;;&
        proxied) proxy_host "$1" 'proxy_set_header X-Forwarded-Proto $scheme;' ;;
        unaware) proxy_host "$1" "" ;;
        resolved) to_php='fastcgi_param SERVER_NAME $host;' ;;
        oneworker) socket="$php_socket.one" ;;
    esac
    cat >"$WORLD_DIR/web/hosts/${1%% *}.conf" <<END
server {
  listen $listen;
  server_name $1;
  root $(root_of "$2");
  index index.php;
  $front
  location ~ \.php\$ {
    include /etc/nginx/fastcgi.conf;
    $to_php
    fastcgi_pass unix:$socket;
  }
}
END
}

# proxy_host HOST HEADERS: ends TLS for HOST and asks for it at port 8080, with more lines about HEADERS.
proxy_host() {
    cat >"$WORLD_DIR/web/hosts/$1.proxy.conf" <<END
server {
  listen 127.0.0.1:443 ssl;
  server_name $1;
  location / {
    proxy_pass http://127.0.0.1:8080;
    proxy_set_header Host \$host;
    $2
  }
}
END
}

redirect_host() {
    cat >"$WORLD_DIR/web/hosts/$1.conf" <<END
server {
  listen 127.0.0.1:443 ssl;
  server_name $1;
  return 301 https://$2\$request_uri;
}
END
}

file_host() {
    cat >"$WORLD_DIR/web/hosts/$1.conf" <<END
server {
  listen 127.0.0.1:443 ssl;
  server_name $1;
  root $2;
  default_type text/html;
}
END
}
