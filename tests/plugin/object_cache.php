<?php
// An object cache (object-cache.php) that keeps WordPress' values in a Redis, and a copy of what a request has seen in
// that request, as the usual ones do. WordPress adds the functions that are missing here.
class WP_Object_Cache {
	private $redis;
	private $copies     = array();
	private $not_stored = array( 'counts' => true, 'plugins' => true );

	public function __construct() {
		$this->redis = stream_socket_client( 'unix://' . getenv( 'WORLD_DIR' ) . '/redis.sock' );
	}

	// Redis' own protocol (RESP), so that every PHP can speak it.
	private function ask( ...$words ) {
		$request = '*' . count( $words ) . "\r\n";
		foreach ( $words as $word ) {
			$request .= '$' . strlen( $word ) . "\r\n$word\r\n";
		}
		fwrite( $this->redis, $request );
		$reply = rtrim( fgets( $this->redis ) );
		if ( '$' !== $reply[0] ) {
			return $reply;
		}
		$length = (int) substr( $reply, 1 );
		return $length < 0 ? null : substr( stream_get_contents( $this->redis, $length + 2 ), 0, -2 );
	}

	public function key( $key, $group ) {
		return basename( dirname( ABSPATH ) ) . ':' . ( $group ? $group : 'default' ) . ':' . $key;
	}

	public function get( $key, $group, $force, &$found ) {
		$id    = $this->key( $key, $group );
		$found = true;
		if ( ! $force && array_key_exists( $id, $this->copies ) ) {
			$value = $this->copies[ $id ];
			return is_object( $value ) ? clone $value : $value;
		}
		$stored = isset( $this->not_stored[ $group ] ) ? null : $this->ask( 'GET', $id );
		if ( null === $stored ) {
			$found = false;
			return false;
		}
		$this->copies[ $id ] = unserialize( $stored );
		return $this->copies[ $id ];
	}

	public function set( $key, $value, $group, $seconds ) {
		$id                  = $this->key( $key, $group );
		$this->copies[ $id ] = is_object( $value ) ? clone $value : $value;
		if ( isset( $this->not_stored[ $group ] ) ) {
			return true;
		}
		$limit = $seconds > 0 ? array( 'EX', (string) $seconds ) : array();
		return '+OK' === $this->ask( 'SET', $id, serialize( $value ), ...$limit );
	}

	public function delete( $key, $group ) {
		$id = $this->key( $key, $group );
		unset( $this->copies[ $id ] );
		return ':1' === $this->ask( 'DEL', $id );
	}

	public function flush() {
		$this->copies = array();
		return '+OK' === $this->ask( 'FLUSHDB' );
	}

	public function do_not_store( $groups ) {
		$this->not_stored += array_fill_keys( (array) $groups, true );
	}
}

function wp_cache_init() {
	$GLOBALS['wp_object_cache'] = new WP_Object_Cache();
}

function wp_cache_get( $key, $group = '', $force = false, &$found = null ) {
	return $GLOBALS['wp_object_cache']->get( $key, $group, $force, $found );
}

function wp_cache_set( $key, $value, $group = '', $seconds = 0 ) {
	return $GLOBALS['wp_object_cache']->set( $key, $value, $group, (int) $seconds );
}

function wp_cache_add( $key, $value, $group = '', $seconds = 0 ) {
	wp_cache_get( $key, $group, false, $found );
	return ! $found && wp_cache_set( $key, $value, $group, $seconds );
}

function wp_cache_replace( $key, $value, $group = '', $seconds = 0 ) {
	wp_cache_get( $key, $group, false, $found );
	return $found && wp_cache_set( $key, $value, $group, $seconds );
}

function wp_cache_delete( $key, $group = '' ) {
	return $GLOBALS['wp_object_cache']->delete( $key, $group );
}

function wp_cache_incr( $key, $by = 1, $group = '' ) {
	$value = max( 0, (int) wp_cache_get( $key, $group ) + $by );
	wp_cache_set( $key, $value, $group );
	return $value;
}

function wp_cache_decr( $key, $by = 1, $group = '' ) {
	return wp_cache_incr( $key, -$by, $group );
}

function wp_cache_flush() {
	return $GLOBALS['wp_object_cache']->flush();
}

function wp_cache_add_global_groups( $groups ) {
	// There is one site.
}

function wp_cache_add_non_persistent_groups( $groups ) {
	$GLOBALS['wp_object_cache']->do_not_store( $groups );
}

function wp_cache_close() {
	return true;
}
