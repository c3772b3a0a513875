<?php

/*
 * The key that the broadcaster wants, if it wants one. It is stored encrypted, with the address that it is for, under a
 * key made from the salts of this WordPress: who has a copy of the database alone does not have it.
 */
define( 'BRASSLET_BROADCASTER_KEY', 'brasslet_broadcaster_key' );
define( 'BRASSLET_BROADCASTER_KEY_RULE', '/^[\x21-\x7E]{1,512}$/D' );

/**
 * Sends a request to the broadcaster: over https, with its certificate checked, to no host of a private network, and
 * following no redirect.
 *
 * @param string      $path        The path below the broadcaster's address.
 * @param array       $request     What WordPress is to send beside that.
 * @param string|null $broadcaster The address; that of the switch, when null.
 * @param string|null $key         The key; the one that is stored, when null.
 * @return array|WP_Error The reply, as WordPress gives it.
 */
function brasslet_ask_broadcaster( $path, $request, $broadcaster = null, $key = null ) {
	$broadcaster = $broadcaster ?? brasslet_payments()['broadcaster'];
	$key         = $key ?? brasslet_broadcaster_key( $broadcaster );
	if ( null === $key ) {
		return new WP_Error( 'brasslet_no_key', 'The stored key cannot be read any more. Type it again.' );
	}
	$headers = array( 'Content-Type' => 'application/json' );
	if ( '' !== $key ) {
		$headers['Authorization'] = 'Bearer ' . $key;
	}
	return wp_safe_remote_request(
		$broadcaster . $path,
		$request + array(
			'timeout'             => BRASSLET_BROADCAST_SECONDS,
			'redirection'         => 0,
			'limit_response_size' => 65536,
			'user-agent'          => 'Brasslet/' . BRASSLET_VERSION,
			'headers'             => $headers,
		)
	);
}

/**
 * Reads the broadcaster's key.
 *
 * @param string $broadcaster The address that it is for.
 * @return string|null The key; empty when none is stored; null when the one that is stored cannot be read, because the
 *                     salts are others by now, or is for another address.
 */
function brasslet_broadcaster_key( $broadcaster ) {
	$stored = brasslet_string( get_option( BRASSLET_BROADCASTER_KEY, '' ) );
	if ( '' === $stored ) {
		return '';
	}
	// phpcs:ignore WordPress.PHP.DiscouragedPHPFunctions -- what brasslet_store_broadcaster_key() has made.
	$box   = (string) base64_decode( $stored, true );
	$nonce = substr( $box, 0, SODIUM_CRYPTO_SECRETBOX_NONCEBYTES );
	if ( strlen( $box ) < SODIUM_CRYPTO_SECRETBOX_NONCEBYTES + SODIUM_CRYPTO_SECRETBOX_MACBYTES ) {
		return null;
	}
	$box   = substr( $box, SODIUM_CRYPTO_SECRETBOX_NONCEBYTES );
	$found = sodium_crypto_secretbox_open( $box, $nonce, brasslet_box_key() );
	$about = $broadcaster . "\n";
	return is_string( $found ) && 0 === strpos( $found, $about ) ? substr( $found, strlen( $about ) ) : null;
}

/**
 * Stores the broadcaster's key, or forgets it.
 *
 * @param string $broadcaster The address that it is for.
 * @param string $key         The key; empty to forget it.
 * @return bool Whether the database has taken it.
 */
function brasslet_store_broadcaster_key( $broadcaster, $key ) {
	if ( '' === $key ) {
		delete_option( BRASSLET_BROADCASTER_KEY );
		brasslet_forget_cached( BRASSLET_BROADCASTER_KEY );
		return '' === brasslet_broadcaster_key( $broadcaster );
	}
	$nonce = random_bytes( SODIUM_CRYPTO_SECRETBOX_NONCEBYTES );
	$box   = $nonce . sodium_crypto_secretbox( $broadcaster . "\n" . $key, $nonce, brasslet_box_key() );
	// phpcs:ignore WordPress.PHP.DiscouragedPHPFunctions -- options hold text.
	update_option( BRASSLET_BROADCASTER_KEY, base64_encode( $box ), false );
	brasslet_forget_cached( BRASSLET_BROADCASTER_KEY );
	return brasslet_broadcaster_key( $broadcaster ) === $key;
}

/**
 * The key that the broadcaster's key is encrypted with.
 *
 * @return string
 */
function brasslet_box_key() {
	return hash_hmac( 'sha256', 'brasslet broadcaster key 1', wp_salt( 'secure_auth' ), true );
}
